#pragma once
// One unit of writing: every change made by `write` stays, or none does.
//
// The record-access layer commits each Update and Delete on its own and
// offers no transaction spanning several of them, so this unit drives the
// backend directly, for SQLite, the one backend there is. It is meant to
// give way to a transaction scope of the data layer itself, with one
// implementation per backend; until then a connection of any other backend
// is refused before anything is written.
#include <functional>
#include <memory>

namespace avlor {
class Connection;
}

namespace avlor::tariffe_detail {

void writeAtomically(const std::shared_ptr<Connection>& connection, const std::function<void()>& write);

} // namespace avlor::tariffe_detail
