#pragma once
// Late-bound use of the component, the way scripting hosts call it: create a
// public class by its programmatic name ("AvlorLogic.clsUtenti"), then call
// its operations by name with loosely typed arguments. Arguments that an
// operation takes by reference (the bands of CalcolaTariffa) are written back
// into the argument list, so the caller sees them after the call.
//
// Operation names are matched without regard to letter case, as scripting
// hosts expect. An unknown class, an unknown operation or a wrong number of
// arguments raises UsageError with a message naming them.
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "avlor/core/Collection.h"
#include "avlor/core/Value.h"

namespace avlor {

// What an operation returns: nothing, a value, or a collection.
using DispatchResult = std::variant<std::monostate, Value, Collection>;

class AutomationObject {
public:
    virtual ~AutomationObject() = default;
    // "AvlorLogic.<class>".
    [[nodiscard]] virtual const std::string& progId() const = 0;
    // The operations in the order in which the class declares them.
    [[nodiscard]] virtual std::vector<std::string> methodNames() const = 0;
    // The names of an operation's arguments, in order ("alIdUtente"); an
    // unknown operation raises UsageError.
    [[nodiscard]] virtual std::vector<std::string> argumentNames(const std::string& method) const = 0;
    virtual DispatchResult invoke(const std::string& method, std::vector<Value>& arguments) = 0;
};

// The programmatic names of the public classes, in a fixed order: the six
// of the original component, then clsParametri.
[[nodiscard]] const std::vector<std::string>& registeredProgIds();

// Creates the class registered under `progId` (compared without regard to
// letter case). Unknown names raise UsageError, naming the classes there are.
[[nodiscard]] std::unique_ptr<AutomationObject> CreateObject(const std::string& progId);

} // namespace avlor
