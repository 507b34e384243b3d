#include <string>

#include "avlor/data/Connection.h"

namespace avlor {

std::string timeLimitText(std::chrono::milliseconds limit)
{
    if (limit.count() % 1000 == 0) {
        const auto seconds = limit.count() / 1000;
        return std::to_string(seconds) + (seconds == 1 ? " secondo" : " secondi");
    }
    return std::to_string(limit.count()) + " ms";
}

} // namespace avlor
