#pragma once
// NewPracticeDatabase: a new practice database made in one step. Whatever
// goes into it (the schema, the official fee tables, a sample firm) is
// written where nobody sees it, and the database appears at its location
// only when publish() is called: a run that fails or is killed half-way
// leaves no database at the location, and a new run can start again.
//
//   - SQLite: the database is built in a hidden file beside the final one
//     (".NAME.nuovo-PID") and linked into place when complete; an existing
//     file at the location is never replaced, and folders made for it are
//     removed again on failure.
//   - PostgreSQL: everything is one transaction on the pooled connection,
//     committed by publish(); a fee table's own transaction becomes a part
//     of it.
//
//     NewPracticeDatabase made(location);
//     setCurrentDatabase(made.fillLocation());
//     ... load fee tables, a sample firm ...
//     made.publish();
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace avlor {

class PgConnection;

class NewPracticeDatabase {
public:
    // Creates the database with its schema where nobody sees it. Refuses
    // (DataError, nothing changed) an in-memory location (it would vanish
    // when the process ends), a folder, an existing file, a server database
    // holding any table.
    explicit NewPracticeDatabase(std::string location);
    // Discards the database unless it was published.
    ~NewPracticeDatabase();
    NewPracticeDatabase(const NewPracticeDatabase&) = delete;
    NewPracticeDatabase& operator=(const NewPracticeDatabase&) = delete;

    // The location to fill it through (setCurrentDatabase) until publish().
    [[nodiscard]] const std::string& fillLocation() const noexcept { return fill_; }
    // PostgreSQL only: grants the existing role `role` what the firm's
    // workstations need and nothing more: to read and write the rows of the
    // practice tables and to draw new ids from their sequences. Not to
    // create, alter or drop anything, not to set a sequence back, and no
    // ownership. Part of the same transaction. `role` is a plain name
    // (letters, digits, '_', not starting with a digit); anything else is
    // refused with DataError.
    void grantWorkstationRole(const std::string& role);

    // Makes the complete database visible at its location, in one step.
    // Raises DataError (and discards it) when that fails, for instance when
    // another database appeared at the location meanwhile.
    void publish();

private:
    void discard() noexcept;

    std::string location_;
    std::string fill_;
    std::filesystem::path file_; // SQLite: the final file
    // SQLite: the folders of the location still to be made, outermost first;
    // they are made only when the complete database is put in place, so that
    // a run killed before then leaves none of them behind.
    std::vector<std::filesystem::path> folders_;
    std::vector<std::filesystem::path> made_; // those this run made, outermost first
    std::shared_ptr<PgConnection> server_; // PostgreSQL: the held connection
    bool published_ = false;
};

} // namespace avlor
