#include "JsonValue.h"

#include <cmath>

#include "Utf8Text.h"
#include "avlor/core/Format.h"

namespace avlor::cli {

nlohmann::ordered_json toJson(const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
        return nullptr;
    case ValueKind::Boolean:
        return value.asBoolean();
    case ValueKind::Integer:
        return value.asInteger();
    case ValueKind::Long:
        return value.asLong();
    case ValueKind::Double: {
        const double d = value.asDouble();
        // A whole double (a count read back from the database, an id from the
        // settings) prints as a whole number.
        if (std::isfinite(d) && d == std::trunc(d) && std::fabs(d) < 9.0e15)
            return static_cast<std::int64_t>(d);
        return d;
    }
    case ValueKind::Currency:
        return value.asCurrency().toFixed4();
    case ValueKind::Date:
        return value.asDate().toDayFirst();
    case ValueKind::Text:
        return utf8Text(value.asText());
    }
    return nullptr;
}

nlohmann::ordered_json toJson(const Collection& collection)
{
    auto array = nlohmann::ordered_json::array();
    for (const auto& item : collection)
        array.push_back(toJson(item));
    return array;
}

nlohmann::ordered_json toJson(const DispatchResult& result)
{
    if (const auto* v = std::get_if<Value>(&result))
        return toJson(*v);
    if (const auto* c = std::get_if<Collection>(&result))
        return toJson(*c);
    return nullptr;
}

std::string toPlainText(const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Null:
        return "null";
    case ValueKind::Currency:
        // As a person reads an amount; --json keeps the exact figure.
        return formatMoneyAmount(value.asCurrency(), false, Locale::user());
    case ValueKind::Date:
        return value.asDate().toDayFirst();
    default:
        return value.toText(Locale::neutral());
    }
}

std::string toPlainText(const DispatchResult& result)
{
    if (const auto* v = std::get_if<Value>(&result))
        return toPlainText(*v);
    if (const auto* c = std::get_if<Collection>(&result)) {
        std::string out;
        for (const auto& item : *c) {
            out += toPlainText(item);
            out += '\n';
        }
        if (!out.empty())
            out.pop_back();
        return out;
    }
    return "";
}

} // namespace avlor::cli
