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
            {"GetSqlRiservatezza",
             {"alIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlRiservatezza(a[0])); }},
            {"GetLivelloRiservatezza",
             {"alIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult {
                 return Value::longValue(u->GetLivelloRiservatezza(a[0]));
             }},
            {"GetGruppiUtente",
             {"alIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult { return u->GetGruppiUtente(a[0]); }},
            {"GetUtentiDelGruppo",
             {"aszGruppo"},
             [u](std::vector<Value>& a) -> DispatchResult { return u->GetUtentiDelGruppo(argumentText(a[0])); }},
            {"GetSqlFiltroPratiche",
             {"avIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlFiltroPratiche(a[0])); }},
            {"IsUtenteContabilita",
             {"avIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult { return Value::boolean(u->IsUtenteContabilita(a[0])); }},
            {"UtenteInGruppo",
             {"avIdUtente", "avGruppo"},
             [u](std::vector<Value>& a) -> DispatchResult { return Value::boolean(u->UtenteInGruppo(a[0], a[1])); }},
            {"GetIdOfCurrentUser", {}, [u](std::vector<Value>&) -> DispatchResult { return u->GetIdOfCurrentUser(); }},
            {"GetSqlFiltroAnagrafiche",
             {"avIdUtente"},
             [u](std::vector<Value>& a) -> DispatchResult { return Value::text(u->GetSqlFiltroAnagrafiche(a[0])); }},
        });
}

} // namespace avlor::binding
