#include "avlor/data/queries/clsDataBase.h"

#include <cstdint>

#include "avlor/core/ErrorTrap.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {

Value clsDataBase::VersioneMdb() const
{
    return withFallback(Value(std::int32_t{-1}), [] {
        clsAccessoDati dati;
        dati.Apri("Versioni", adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
        return dati.Campo("Versione", TipoNumero);
    });
}

} // namespace avlor
