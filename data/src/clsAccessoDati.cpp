#include "avlor/data/clsAccessoDati.h"

#include "FieldKind.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"

namespace avlor {

namespace {

// The two opening modes the application uses, and no others.
bool isReadOnlyMode(std::int32_t cursorType, std::int32_t lockType, std::int32_t options)
{
    return cursorType == adOpenForwardOnly && lockType == adLockReadOnly && options == adCmdUnspecified;
}

bool isEditableMode(std::int32_t cursorType, std::int32_t lockType, std::int32_t options)
{
    return cursorType == adOpenKeyset && lockType == adLockOptimistic && options == adCmdUnspecified;
}

} // namespace

clsAccessoDati::clsAccessoDati() = default;

clsAccessoDati::clsAccessoDati(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) { }

clsAccessoDati::~clsAccessoDati() = default;

std::shared_ptr<RecordSet> clsAccessoDati::Apri(const std::string& source, std::int32_t cursorType,
                                                std::int32_t lockType, std::int32_t options)
{
    const bool editable = isEditableMode(cursorType, lockType, options);
    if (!editable && !isReadOnlyMode(cursorType, lockType, options)) {
        throw DataError("Modo di apertura non previsto " + std::to_string(cursorType) + ", " +
                            std::to_string(lockType) + ", " + std::to_string(options) +
                            " (sola lettura 0, 1, -1; modificabile 1, 3, -1)",
                        source);
    }
    // The connection is taken on first use, so that making the object never
    // fails and costs nothing.
    if (!connection_) {
        connection_ = connectionFor(currentDatabase());
    }
    current_.reset();
    current_ = connection_->open(source, editable);
    return current_;
}

RecordSet& clsAccessoDati::Recordset()
{
    if (!current_) {
        throw DataError("Nessun recordset è aperto");
    }
    return *current_;
}

Value clsAccessoDati::Campo(const std::string& name, std::int32_t tipoCampo)
{
    return valueOfKind(Recordset().Field(name), tipoCampo);
}

void clsAccessoDati::ImpostaCampo(const std::string& name, const Value& value) { Recordset().SetField(name, value); }

} // namespace avlor
