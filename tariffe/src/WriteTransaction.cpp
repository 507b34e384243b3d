#include "WriteTransaction.h"

#include "avlor/data/Connection.h"

namespace avlor::tariffe_detail {

void writeAtomically(const std::shared_ptr<Connection>& connection, const std::function<void()>& write)
{
    TransactionScope transaction(connection);
    write();
    transaction.commit();
}

} // namespace avlor::tariffe_detail
