#include "FieldKind.h"

#include <cmath>
#include <limits>
#include <string>

#include "avlor/core/Error.h"
#include "avlor/core/Locale.h"
#include "avlor/data/DataError.h"
#include "avlor/data/TipoCampo.h"

namespace avlor {

namespace {

Value asNumber(const Value& stored)
{
    switch (stored.kind()) {
    case ValueKind::Boolean:
        return Value::integer(stored.asBoolean() ? std::int16_t{-1} : std::int16_t{0});
    case ValueKind::Date:
        return Value::longValue(stored.asDate().dayCount());
    case ValueKind::Text: {
        const double number = stored.toDouble();
        if (std::trunc(number) == number && number >= std::numeric_limits<std::int32_t>::min() &&
            number <= std::numeric_limits<std::int32_t>::max()) {
            return Value::longValue(static_cast<std::int32_t>(number));
        }
        return Value::dbl(number);
    }
    default:
        return stored;
    }
}

Value asDate(const Value& stored)
{
    if (stored.kind() == ValueKind::Text) {
        if (const auto dayFirst = Date::parseDayFirst(stored.asText())) {
            return Value::date(*dayFirst);
        }
        if (const auto iso = Date::parseIso(stored.asText())) {
            return Value::date(*iso);
        }
        throw ValueError(ValueError::Kind::InvalidDate, "Non è una data: '" + stored.asText() + "'");
    }
    return Value::date(stored.toDate());
}

} // namespace

Value valueOfKind(const Value& stored, std::int32_t tipoCampo)
{
    if (stored.isNull() || stored.isEmpty()) {
        return stored;
    }
    switch (tipoCampo) {
    case TipoTesto:
        return stored.kind() == ValueKind::Text ? stored : Value::text(stored.toText(Locale::neutral()));
    case TipoNumero:
        return asNumber(stored);
    case TipoData:
        return asDate(stored);
    default:
        throw DataError("Tipo di campo sconosciuto " + std::to_string(tipoCampo) + " (1 testo, 2 numero, 3 data)");
    }
}

} // namespace avlor
