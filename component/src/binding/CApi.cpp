// The C interface over the late-bound calls. Exceptions never cross it: each
// entry point catches them and leaves the message for avlor_last_error.
#include "avlor/avlorlogic.h"

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "avlor/component/LateBound.h"
#include "avlor/core/Messages.h"
#include "avlor/data/Database.h"

struct avlor_object {
    std::unique_ptr<avlor::AutomationObject> object;
};

struct avlor_value {
    avlor::Value value;
    std::optional<std::vector<std::unique_ptr<avlor_value>>> items; // set for a collection
    std::string text; // storage for avlor_value_as_text
    std::string amount; // storage for avlor_value_as_amount
};

namespace {

// The C kinds are the C++ kinds by number; a change of either order must show.
static_assert(static_cast<int>(avlor::ValueKind::Empty) == AVLOR_EMPTY &&
              static_cast<int>(avlor::ValueKind::Null) == AVLOR_NULL &&
              static_cast<int>(avlor::ValueKind::Boolean) == AVLOR_BOOLEAN &&
              static_cast<int>(avlor::ValueKind::Integer) == AVLOR_INTEGER &&
              static_cast<int>(avlor::ValueKind::Long) == AVLOR_LONG &&
              static_cast<int>(avlor::ValueKind::Double) == AVLOR_DOUBLE &&
              static_cast<int>(avlor::ValueKind::Currency) == AVLOR_CURRENCY &&
              static_cast<int>(avlor::ValueKind::Date) == AVLOR_DATE &&
              static_cast<int>(avlor::ValueKind::Text) == AVLOR_TEXT);

thread_local std::string lastError;

template <typename F>
int guarded(F&& body)
{
    try {
        lastError.clear();
        body();
        return AVLOR_OK;
    } catch (const std::exception& e) {
        lastError = e.what();
    } catch (...) {
        lastError = "errore sconosciuto";
    }
    return AVLOR_FAILED;
}

avlor_value* wrap(avlor::Value v)
{
    auto* out = new avlor_value;
    out->value = std::move(v);
    return out;
}

avlor_value* wrap(const avlor::DispatchResult& result)
{
    if (const auto* v = std::get_if<avlor::Value>(&result))
        return wrap(*v);
    auto* out = new avlor_value;
    if (const auto* c = std::get_if<avlor::Collection>(&result)) {
        out->items.emplace();
        for (const auto& item : *c)
            out->items->push_back(std::unique_ptr<avlor_value>(wrap(item)));
    }
    return out;
}

class CallbackMessageBoxes final : public avlor::MessageBoxes {
public:
    CallbackMessageBoxes(avlor_message_callback callback, void* userData) : callback_(callback), userData_(userData) { }
    avlor::MsgResult show(const std::string& text, const std::string& title, avlor::MsgIcon, avlor::MsgButtons) override
    {
        switch (callback_(text.c_str(), title.c_str(), userData_)) {
        case 1:
            return avlor::MsgResult::Cancel;
        case 2:
            return avlor::MsgResult::Yes;
        case 3:
            return avlor::MsgResult::No;
        default:
            return avlor::MsgResult::Ok;
        }
    }

private:
    avlor_message_callback callback_;
    void* userData_;
};

} // namespace

extern "C" {

const char* avlor_last_error(void) { return lastError.c_str(); }

int avlor_set_database(const char* location)
{
    return guarded([&] { avlor::setCurrentDatabase(location ? location : ""); });
}

void avlor_set_message_callback(avlor_message_callback callback, void* user_data)
{
    if (callback)
        avlor::setMessageBoxes(std::make_shared<CallbackMessageBoxes>(callback, user_data));
    else
        avlor::setMessageBoxes(nullptr);
}

int avlor_create(const char* prog_id, avlor_object** out_object)
{
    if (!prog_id || !out_object) {
        lastError = "avlor_create vuole un nome programmatico e un posto per l'oggetto";
        return AVLOR_BAD_ARGUMENT;
    }
    return guarded([&] { *out_object = new avlor_object{avlor::CreateObject(prog_id)}; });
}

void avlor_release(avlor_object* object) { delete object; }

int avlor_call(avlor_object* object, const char* method, avlor_value** arguments, size_t count,
               avlor_value** out_result)
{
    if (!object || !method || (count > 0 && !arguments) || !out_result) {
        lastError = "avlor_call vuole un oggetto, il nome di un metodo, gli argomenti e un posto per il risultato";
        return AVLOR_BAD_ARGUMENT;
    }
    for (size_t i = 0; i < count; ++i) {
        if (!arguments[i] || arguments[i]->items) {
            lastError = "l'argomento " + std::to_string(i + 1) + " di " + method + " manca o è una collezione";
            return AVLOR_BAD_ARGUMENT;
        }
    }
    return guarded([&] {
        std::vector<avlor::Value> values;
        values.reserve(count);
        for (size_t i = 0; i < count; ++i)
            values.push_back(arguments[i]->value);
        const avlor::DispatchResult result = object->object->invoke(method, values);
        for (size_t i = 0; i < count; ++i)
            arguments[i]->value = values[i];
        *out_result = wrap(result);
    });
}

avlor_value* avlor_value_empty(void) { return wrap(avlor::Value()); }
avlor_value* avlor_value_null(void) { return wrap(avlor::Value::null()); }
avlor_value* avlor_value_boolean(int truth) { return wrap(avlor::Value::boolean(truth != 0)); }
avlor_value* avlor_value_long(int32_t number) { return wrap(avlor::Value::longValue(number)); }
avlor_value* avlor_value_double(double number) { return wrap(avlor::Value::dbl(number)); }
avlor_value* avlor_value_text(const char* utf8) { return wrap(avlor::Value::text(utf8 ? utf8 : "")); }

avlor_value* avlor_value_currency(const char* decimal_text)
{
    avlor_value* out = nullptr;
    if (guarded([&] {
            out = wrap(avlor::Value::currency(avlor::Currency::fromText(decimal_text ? decimal_text : "")));
        }) != AVLOR_OK)
        return nullptr;
    return out;
}

void avlor_value_free(avlor_value* value) { delete value; }

int avlor_value_kind(const avlor_value* value)
{
    if (!value)
        return AVLOR_EMPTY;
    if (value->items)
        return AVLOR_COLLECTION;
    return static_cast<int>(value->value.kind());
}

const char* avlor_value_as_text(avlor_value* value)
{
    if (!value)
        return "";
    if (guarded([&] { value->text = value->value.toText(); }) != AVLOR_OK)
        value->text.clear();
    return value->text.c_str();
}

const char* avlor_value_as_amount(avlor_value* value)
{
    if (!value || value->items || !value->value.isNumeric())
        return nullptr;
    if (guarded([&] { value->amount = value->value.toCurrency().toFixed4(); }) != AVLOR_OK)
        return nullptr;
    return value->amount.c_str();
}

int avlor_value_as_long(const avlor_value* value, int32_t* out_number)
{
    if (!value || !out_number || value->items) {
        lastError = "avlor_value_as_long vuole un valore semplice e un posto per il numero";
        return AVLOR_BAD_ARGUMENT;
    }
    return guarded([&] { *out_number = value->value.toLong(); });
}

size_t avlor_value_count(const avlor_value* value) { return value && value->items ? value->items->size() : 0; }

avlor_value* avlor_value_item(avlor_value* value, size_t index)
{
    if (!value || !value->items || index < 1 || index > value->items->size())
        return nullptr;
    return (*value->items)[index - 1].get();
}

} // extern "C"
