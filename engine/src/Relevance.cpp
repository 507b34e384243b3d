#include "avlor/engine/Relevance.h"

#include "avlor/engine/AmountMath.h"

namespace avlor {

Currency interpolateByRelevance(Currency MinTar, Currency MaxTar, std::int16_t vRil)
{
    const Currency difference = MaxTar - MinTar;
    return MinTar + hundredthOf(difference.times(vRil));
}

Currency proposalByRelevance(Currency MinTar, Currency MaxTar, std::int16_t vRil)
{
    if (vRil == 0)
        return MinTar;
    if (vRil == 100)
        return MaxTar;
    return interpolateByRelevance(MinTar, MaxTar, vRil);
}

} // namespace avlor
