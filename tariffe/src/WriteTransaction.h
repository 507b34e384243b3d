#pragma once
// One unit of writing: every change made by `write` stays, or none does.
//
// The record-access layer commits each Update and Delete on its own; this
// unit runs `write` inside a transaction of the connection (TransactionScope,
// on either backend) and commits it only when `write` returns normally.
#include <functional>
#include <memory>

namespace avlor {
class Connection;
}

namespace avlor::tariffe_detail {

void writeAtomically(const std::shared_ptr<Connection>& connection, const std::function<void()>& write);

} // namespace avlor::tariffe_detail
