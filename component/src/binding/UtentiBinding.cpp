// Late-bound face of clsUtenti.
#include "avlor/access/clsUtenti.h"
#include "binding/MethodTable.h"

namespace avlor::binding {

std::unique_ptr<AutomationObject> makeClsUtenti()
{
    auto u = std::make_shared<clsUtenti>();
    return std::make_unique<TableObject>(
        "AvlorLogic.clsUtenti",
        std::vector<Method>{
            {"GetSqlRiservatezza", 1,
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlRiservatezza(a[0])); }},
            {"GetLivelloRiservatezza", 1,
             [u](std::vector<Value>& a) -> DispatchResult {
                 return Value::longValue(u->GetLivelloRiservatezza(a[0]));
             }},
            {"GetGruppiUtente", 1, [u](std::vector<Value>& a) -> DispatchResult { return u->GetGruppiUtente(a[0]); }},
            {"GetUtentiDelGruppo", 1,
             [u](std::vector<Value>& a) -> DispatchResult { return u->GetUtentiDelGruppo(argumentText(a[0])); }},
            {"GetSqlFiltroPratiche", 1,
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlFiltroPratiche(a[0])); }},
            {"IsUtenteContabilita", 1,
             [u](std::vector<Value>& a) -> DispatchResult { return Value::boolean(u->IsUtenteContabilita(a[0])); }},
            {"UtenteInGruppo", 2,
             [u](std::vector<Value>& a) -> DispatchResult { return Value::boolean(u->UtenteInGruppo(a[0], a[1])); }},
            {"GetIdOfCurrentUser", 0, [u](std::vector<Value>&) -> DispatchResult { return u->GetIdOfCurrentUser(); }},
            {"GetSqlFiltroAnagrafiche", 1,
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlFiltroAnagrafiche(a[0])); }},
        });
}

} // namespace avlor::binding
