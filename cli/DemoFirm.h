#pragma once
// A small sample firm for `avlor db init --demo`: users with hourly rates,
// groups, two case files in euro and one in lire with their parties, a few
// actions, persons, invoices and a fee template. It lets a newcomer try every
// command at once, and gives the command's own tests known rows.
namespace avlor::cli {

// Writes the sample rows into the current database (which must be a new
// practice database).
void createDemoFirm();

} // namespace avlor::cli
