#pragma once
// A public class seen by a late-bound caller: its programmatic name and a
// table of operations, each with its number of arguments and a call that
// converts the loosely typed arguments to the operation's own types.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "avlor/component/LateBound.h"

namespace avlor::binding {

struct Method {
    std::string name;
    std::vector<std::string> arguments; // their names, in order
    std::function<DispatchResult(std::vector<Value>& arguments)> call;
};

class TableObject final : public AutomationObject {
public:
    TableObject(std::string progId, std::vector<Method> methods);

    [[nodiscard]] const std::string& progId() const override { return progId_; }
    [[nodiscard]] std::vector<std::string> methodNames() const override;
    [[nodiscard]] std::vector<std::string> argumentNames(const std::string& method) const override;
    DispatchResult invoke(const std::string& method, std::vector<Value>& arguments) override;

private:
    [[nodiscard]] const Method& method(const std::string& name) const;

    std::string progId_;
    std::vector<Method> methods_;
};

// Comparison of names without regard to letter case (ASCII).
[[nodiscard]] bool sameName(const std::string& a, const std::string& b) noexcept;

// Conversions of late-bound arguments to the types of the operations.
[[nodiscard]] std::string argumentText(const Value& value);

std::unique_ptr<AutomationObject> makeClsParcella();
std::unique_ptr<AutomationObject> makeClsUtenti();
std::unique_ptr<AutomationObject> makeClsPratica();
std::unique_ptr<AutomationObject> makeClsDataBase();
std::unique_ptr<AutomationObject> makeClsAnagrafica();
std::unique_ptr<AutomationObject> makeClsFatture();
std::unique_ptr<AutomationObject> makeClsParametri();

} // namespace avlor::binding
