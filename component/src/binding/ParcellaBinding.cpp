// Late-bound face of ClsParcella.
#include "avlor/component/ClsParcella.h"
#include "binding/MethodTable.h"

namespace avlor::binding {

namespace {

// CalcolaTariffa takes every argument by reference: the caller's values go
// in converted to the engine's types, and all ten come back as the engine
// left them, so a scripting host reads the band from its own variables.
DispatchResult calcolaTariffa(ClsParcella& parcella, std::vector<Value>& a)
{
    Currency cValore = a[0].toCurrency();
    std::int16_t vRil = a[1].toInteger();
    std::string sTabella = argumentText(a[2]);
    std::int16_t bInd = a[3].toInteger();
    std::int32_t idTariffa = a[4].toLong();
    Currency minTar = a[5].toCurrency();
    Currency maxTar = a[6].toCurrency();
    Currency minS = a[7].toCurrency();
    Currency maxS = a[8].toCurrency();
    std::string autorita = argumentText(a[9]);

    const Currency result =
        parcella.CalcolaTariffa(cValore, vRil, sTabella, bInd, idTariffa, minTar, maxTar, minS, maxS, autorita);

    a[0] = Value::currency(cValore);
    a[1] = Value::integer(vRil);
    a[2] = Value::text(sTabella);
    a[3] = Value::boolean(bInd != 0);
    if (bInd != 0 && bInd != -1)
        a[3] = Value::integer(bInd);
    a[4] = Value::longValue(idTariffa);
    a[5] = Value::currency(minTar);
    a[6] = Value::currency(maxTar);
    a[7] = Value::currency(minS);
    a[8] = Value::currency(maxS);
    a[9] = Value::text(autorita);
    return Value::currency(result);
}

} // namespace

std::unique_ptr<AutomationObject> makeClsParcella()
{
    auto parcella = std::make_shared<ClsParcella>();
    return std::make_unique<TableObject>(
        "AvlorLogic.ClsParcella",
        std::vector<Method>{
            {"ShowDialogParcellazione",
             {"IdPratica", "aszParti", "aszAdempimento", "aData"},
             [parcella](std::vector<Value>& a) -> DispatchResult {
                 parcella->ShowDialogParcellazione(a[0].toLong(), argumentText(a[1]), argumentText(a[2]),
                                                   a[3].toDate());
                 return std::monostate{};
             }},
            {"CalcolaTariffa",
             {"cValore", "vRil", "sTabella", "bInd", "idTariffa", "MinTar", "MaxTar", "MinS", "MaxS", "Autorita"},
             [parcella](std::vector<Value>& a) { return calcolaTariffa(*parcella, a); }},
        });
}

} // namespace avlor::binding
