// Late-bound faces of the four small query classes.
#include "avlor/data/queries/clsAnagrafica.h"
#include "avlor/data/queries/clsDataBase.h"
#include "avlor/data/queries/clsFatture.h"
#include "avlor/data/queries/clsPratica.h"
#include "binding/MethodTable.h"

namespace avlor::binding {

std::unique_ptr<AutomationObject> makeClsPratica()
{
    auto p = std::make_shared<clsPratica>();
    return std::make_unique<TableObject>("AvlorLogic.clsPratica",
                                         std::vector<Method>{
                                             {"QuantiClientiPerPratica",
                                              {"avCodicePratica"},
                                              [p](std::vector<Value>& a) -> DispatchResult {
                                                  return Value::longValue(p->QuantiClientiPerPratica(a[0]));
                                              }},
                                             {"QuanteControPartiPerPratica",
                                              {"avCodicePratica"},
                                              [p](std::vector<Value>& a) -> DispatchResult {
                                                  return Value::longValue(p->QuanteControPartiPerPratica(a[0]));
                                              }},
                                         });
}

std::unique_ptr<AutomationObject> makeClsDataBase()
{
    auto d = std::make_shared<clsDataBase>();
    return std::make_unique<TableObject>(
        "AvlorLogic.clsDataBase",
        std::vector<Method>{
            {"VersioneMdb", {}, [d](std::vector<Value>&) -> DispatchResult { return d->VersioneMdb(); }},
        });
}

std::unique_ptr<AutomationObject> makeClsAnagrafica()
{
    auto an = std::make_shared<clsAnagrafica>();
    return std::make_unique<TableObject>(
        "AvlorLogic.clsAnagrafica",
        std::vector<Method>{
            {"IsSoggettoGiuridico",
             {"avIdAna"},
             [an](std::vector<Value>& a) -> DispatchResult { return an->IsSoggettoGiuridico(a[0]); }},
        });
}

std::unique_ptr<AutomationObject> makeClsFatture()
{
    auto f = std::make_shared<clsFatture>();
    return std::make_unique<TableObject>(
        "AvlorLogic.clsFatture",
        std::vector<Method>{
            {"GetResiduoFattura",
             {"avIdFattura"},
             [f](std::vector<Value>& a) -> DispatchResult { return f->GetResiduoFattura(a[0]); }},
        });
}

} // namespace avlor::binding
