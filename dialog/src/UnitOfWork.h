#pragma once
// One press of a button that writes the case file's actions: everything
// the press writes (the renumbering, the new or changed rows, the delete)
// is kept together when the press's work ends well, and nothing of it
// otherwise, whatever fails and wherever the process stops.
//
// Writers of the same case file take turns: two workstations pressing at
// once on a shared server would otherwise both shift the same numbers and
// leave two actions holding one. Writers of other case files are not held
// up (SQLite lets one writer at a time into the whole file anyway).
#include <cstdint>
#include <memory>

#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"
#include "avlor/dialog/CaseFileLock.h"

namespace avlor::dialog {

class UnitOfWork {
public:
    explicit UnitOfWork(std::int32_t idPratica)
        : connection_(connectionFor(currentDatabase())), transaction_(connection_)
    {
        connection_->lockForTransaction(SpazioLockAzioniPratica, idPratica);
    }

    // Keeps what the press wrote; without it, leaving the scope drops it.
    void commit() { transaction_.commit(); }

private:
    std::shared_ptr<Connection> connection_;
    TransactionScope transaction_;
};

} // namespace avlor::dialog
