#pragma once
// The place in each backend where a database call is about to happen: it
// counts the call for an armed InjectedFault and raises its DataError when
// this call is the one chosen to fail. Free when no switch is armed.
namespace avlor {

// `what`: the kind of call, as InjectedFault.h lists them.
void databaseCall(const char* what);

} // namespace avlor
