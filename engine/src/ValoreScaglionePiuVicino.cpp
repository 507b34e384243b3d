#include "avlor/engine/ValoreScaglionePiuVicino.h"

#include <optional>

#include "FeeRow.h"

namespace avlor {

namespace {
constexpr int BracketColumns = 13;

Currency distance(Currency a, Currency b) { return a >= b ? a - b : b - a; }
} // namespace

Value ValoreScaglionePiuVicino(Currency importo, std::int32_t idTariffa, const std::string& tabella)
{
    FeeRow row(tabella, idTariffa);
    // No best distance yet stands for "farther than any amount".
    std::optional<Currency> bestDistance;
    Value nearest;
    for (int i = 1; i <= BracketColumns; ++i) {
        Value column = row.amount("VALORESCA" + std::to_string(i));
        // A null column has no distance and never wins.
        if (column.isNull() || column.isEmpty())
            continue;
        const Currency d = distance(column.toCurrency(), importo);
        // Strictly nearer only: on a tie the lower bracket is kept.
        if (!bestDistance || *bestDistance > d) {
            bestDistance = d;
            nearest = std::move(column);
        }
    }
    return nearest;
}

} // namespace avlor
