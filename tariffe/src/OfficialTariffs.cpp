#include "avlor/tariffe/OfficialTariffs.h"

#include <cstdlib>
#include <map>
#include <set>
#include <utility>

#include "avlor/core/Error.h"
#include "avlor/data/Database.h"
#include "avlor/core/FeeTables.h"
#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffFileError.h"
#include "avlor/tariffe/TariffSources.h"
#include "FileText.h"
#include "TariffWriter.h"
#include "WriteTransaction.h"

namespace avlor {

namespace {

namespace fs = std::filesystem;

constexpr const char* SourcesFileName = "FonteTariffe.csv";

struct ShippedTable {
    std::string fileName;
    TariffFile content;
};

std::vector<ShippedTable> readShippedTables(const fs::path& folder, const std::shared_ptr<Connection>& connection)
{
    std::vector<ShippedTable> tables;
    for (const FeeTable& table : feeTables()) {
        const std::string name(table.name);
        const fs::path path = folder / (name + ".csv");
        if (!fs::exists(path))
            continue;
        try {
            tables.push_back({path.filename().string(),
                              readTariffFile(name, tariffe_detail::readFileText(path),
                                             tariffe_detail::tableColumns(connection, name))});
        } catch (const TariffFileError& e) {
            throw e.inFile(path.filename().string());
        }
    }
    return tables;
}

// Every shipped item has its source and every source names a shipped item,
// so that no figure enters the database without the record of where it
// comes from.
void requireMatchingSources(const std::vector<ShippedTable>& tables, const std::vector<TariffSource>& sources)
{
    std::set<std::pair<std::string, std::int32_t>> shipped;
    for (const ShippedTable& table : tables) {
        for (const TariffFileRow& row : table.content.rows)
            shipped.emplace(table.content.table, row.id);
    }
    std::set<std::pair<std::string, std::int32_t>> sourced;
    for (const TariffSource& source : sources) {
        if (!source.id)
            continue;
        if (!shipped.contains({source.table, *source.id}))
            throw TariffFileError(source.line, "Id",
                                  "item " + std::to_string(*source.id) + " of " + source.table +
                                      " is not among the shipped items",
                                  SourcesFileName);
        sourced.emplace(source.table, *source.id);
    }
    for (const ShippedTable& table : tables) {
        for (const TariffFileRow& row : table.content.rows) {
            if (!sourced.contains({table.content.table, row.id}))
                throw TariffFileError(row.line, "Id",
                                      "item " + std::to_string(row.id) + " has no source in " + SourcesFileName,
                                      table.fileName);
        }
    }
}

bool holdsShippedTables(const fs::path& folder)
{
    std::error_code code;
    return fs::is_regular_file(folder / SourcesFileName, code);
}

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

} // namespace

OfficialTariffsResult loadOfficialTariffs(const fs::path& folder)
{
    if (!holdsShippedTables(folder))
        throw Error("The shipped fee tables are not in " + folder.string() + ": " + SourcesFileName + " is missing");
    const auto connection = connectionFor(currentDatabase());
    const std::vector<ShippedTable> tables = readShippedTables(folder, connection);
    std::vector<TariffSource> sources;
    try {
        sources = readTariffSources(tariffe_detail::readFileText(folder / SourcesFileName));
    } catch (const TariffFileError& e) {
        throw e.inFile(SourcesFileName);
    }
    requireMatchingSources(tables, sources);

    OfficialTariffsResult result;
    tariffe_detail::writeAtomically(connection, [&] {
        for (const ShippedTable& table : tables)
            result.tables.push_back(tariffe_detail::writeItems(connection, table.content));
        for (const TariffSource& source : sources)
            tariffe_detail::writeSource(connection, source.table, source.id, source.fonte, source.note);
        result.sources = sources.size();
    });
    return result;
}

fs::path officialTariffsFolder()
{
    if (const std::string chosen = environment("AVLOR_TARIFFE_DIR"); !chosen.empty()) {
        if (!holdsShippedTables(chosen))
            throw Error("AVLOR_TARIFFE_DIR names " + chosen + ", which holds no " + SourcesFileName);
        return chosen;
    }
    std::error_code code;
    const fs::path program = fs::read_symlink("/proc/self/exe", code);
    if (!code) {
        for (fs::path folder = program.parent_path(); !folder.empty(); folder = folder.parent_path()) {
            for (const char* below : {"share/avlor/tariffe", "sql/tariffe"}) {
                if (holdsShippedTables(folder / below))
                    return folder / below;
            }
            if (folder == folder.root_path())
                break;
        }
    }
    if (const std::string source = environment("AVLOR_SOURCE_DIR"); !source.empty()) {
        if (const fs::path folder = fs::path(source) / "sql" / "tariffe"; holdsShippedTables(folder))
            return folder;
    }
    throw Error("The shipped fee tables were not found beside the program: set AVLOR_TARIFFE_DIR to the folder "
                "that holds FonteTariffe.csv");
}

} // namespace avlor
