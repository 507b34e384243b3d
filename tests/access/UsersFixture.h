#pragma once
// UsersFixture: a practice database for one test, with helpers to lay out
// users and group memberships, and the clsUtenti under test.
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "TestDatabase.h"
#include "avlor/access/clsUtenti.h"
#include "avlor/core/Collection.h"
#include "avlor/core/Value.h"

namespace avlor::test {

class UsersFixture : public ::testing::Test {
protected:
    void addUser(std::int32_t id, std::int32_t level, bool accounting = false) const
    {
        db.exec("INSERT INTO Utenti (ID_Utente, NomeUtente, LivelloRiservatezza, TitContabilita) VALUES (" +
                std::to_string(id) + ", 'Utente " + std::to_string(id) + "', " + std::to_string(level) + ", " +
                (accounting ? "'True'" : "'False'") + ")");
    }

    void addMember(std::int32_t user, const std::string& group) const
    {
        db.insertRow("RelGruppiUtenti", {{"Fk_Id_Utente", Value(user)}, {"Fk_Gruppo", Value(group)}});
    }

    void addMembers(const std::string& group, std::initializer_list<std::int32_t> users) const
    {
        for (const std::int32_t user : users) {
            addMember(user, group);
        }
    }

    // The items of a collection as text, to compare whole lists at once.
    static std::vector<std::string> texts(const Collection& items)
    {
        std::vector<std::string> result;
        for (const Value& item : items) {
            result.push_back(item.toText());
        }
        return result;
    }

    TestDatabase db;
    clsUtenti utenti;
};

inline Value id(std::int32_t value) { return Value(value); }

// The reads that fail half-way on a user id that is no number ('nove')
// rest on SQLite keeping such a text in an INTEGER column; a column of the
// server refuses the value when it is written (tests/postgresql shows it).
inline constexpr const char* TextInIntegerColumn =
    "a text id in an INTEGER column is SQLite's dynamic typing; the server refuses to store it";

} // namespace avlor::test
