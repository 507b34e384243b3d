// Two workstations on one server: processes that add, change and delete
// actions of the same case file at the same time never lose or duplicate a
// row and never fail because of each other; a writer killed between its
// writes leaves every row it wrote, whole.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

#include "ServerSupport.h"
#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor::test {
namespace {

constexpr int CaseFile = 5;
constexpr int Rounds = 60;

// What one workstation leaves in the case file: description and fee of each
// of its actions still there, by id.
using Actions = std::map<std::int32_t, std::pair<std::string, Currency>>;

std::int32_t addAction(int station, int round)
{
    clsAccessoDati data;
    data.Apri("Azioni", 1, 3, -1);
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(CaseFile));
    data.ImpostaCampo("NOrdine", Value(round));
    data.ImpostaCampo("IsTariffa", Value(round % 2 == 0));
    data.ImpostaCampo("Descr", Value("postazione " + std::to_string(station) + " voce " + std::to_string(round)));
    data.ImpostaCampo("Onorari", Value(Currency::fromWhole(round)));
    data.ImpostaCampo("Data", Value("02/06/2004"));
    data.Recordset().Update();
    return data.Campo("IdAzione", TipoNumero).asLong();
}

// Changes an action as the dialog does: the whole row opened by its id.
void changeAction(std::int32_t id, const std::string& descr, Currency fee)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(id), 1, 3, -1);
    data.ImpostaCampo("Descr", Value(descr));
    data.ImpostaCampo("Onorari", Value(fee));
    data.Recordset().Update();
}

void deleteAction(std::int32_t id)
{
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(id), 1, 3, -1);
    data.Recordset().Delete();
}

// Renumbers this station's tariff actions from 1, as after a delete: every
// row of the list is written back by its key while the other station
// writes its own rows of the same case file.
void renumber(int station)
{
    clsAccessoDati data;
    data.Apri("SELECT NOrdine FROM Azioni WHERE IdPra = " + std::to_string(CaseFile) +
                  " AND IsTariffa = 'TRUE' AND Descr LIKE 'postazione " + std::to_string(station) +
                  " %' ORDER BY NOrdine ",
              1, 3, -1);
    std::int16_t next = 1;
    for (; !data.Recordset().Eof(); data.Recordset().MoveNext()) {
        data.ImpostaCampo("NOrdine", Value::integer(next++));
        data.Recordset().Update();
    }
}

// One workstation's work; what it left is written to `report`.
Actions work(int station)
{
    Actions mine;
    std::vector<std::int32_t> alive;
    for (int round = 1; round <= Rounds; ++round) {
        const std::int32_t id = addAction(station, round);
        mine[id] = {"postazione " + std::to_string(station) + " voce " + std::to_string(round),
                    Currency::fromWhole(round)};
        alive.push_back(id);
        // The list of the case file, as the grid reads it after each change.
        clsAccessoDati grid;
        grid.Apri("SELECT * FROM Azioni WHERE IdPra = " + std::to_string(CaseFile) + " ORDER BY NOrdine ", 0, 1, -1);
        (void)grid.Recordset().RecordCount();
        if (round % 2 == 0) {
            const std::int32_t changed = alive[alive.size() / 2];
            const std::string descr = mine[changed].first + " cambiata";
            const Currency fee = mine[changed].second + Currency::fromText("0.01");
            changeAction(changed, descr, fee);
            mine[changed] = {descr, fee};
        }
        if (round % 3 == 0) {
            deleteAction(alive.front());
            mine.erase(alive.front());
            alive.erase(alive.begin());
        }
        if (round % 10 == 0) {
            renumber(station);
        }
    }
    return mine;
}

void writeReport(const std::string& file, const Actions& actions)
{
    std::ofstream out(file);
    for (const auto& [id, action] : actions) {
        out << id << '\t' << action.second.toFixed4() << '\t' << action.first << '\n';
    }
}

Actions readReport(const std::string& file)
{
    Actions actions;
    std::ifstream in(file);
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream fields(line);
        std::string id;
        std::string fee;
        std::string descr;
        std::getline(fields, id, '\t');
        std::getline(fields, fee, '\t');
        std::getline(fields, descr);
        actions[std::stoi(id)] = {descr, Currency::fromText(fee)};
    }
    return actions;
}

int waitFor(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(ServerConcurrency, TwoWorkstationsOnTheSameCaseFile)
{
    TestDatabase db;
    closeConnections(); // no session crosses the fork
    int start[2];
    ASSERT_EQ(pipe(start), 0);
    std::vector<pid_t> stations;
    for (int station = 1; station <= 2; ++station) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(start[1]);
            char go = 0;
            (void)!read(start[0], &go, 1); // both start together
            const std::string report = (db.folder() / ("postazione" + std::to_string(station))).string();
            try {
                writeReport(report, work(station));
                _exit(0);
            } catch (const std::exception& error) {
                std::ofstream(report + ".errore") << error.what() << '\n';
                _exit(1);
            }
        }
        stations.push_back(child);
    }
    close(start[0]);
    close(start[1]); // end of file: go
    for (std::size_t i = 0; i < stations.size(); ++i) {
        const int status = waitFor(stations[i]);
        const std::string report = (db.folder() / ("postazione" + std::to_string(i + 1))).string();
        std::ifstream failure(report + ".errore");
        std::string message;
        std::getline(failure, message);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "station " << i + 1 << ": " << message;
    }

    // Exactly the rows the two stations left, each as its station left it.
    Actions expected = readReport((db.folder() / "postazione1").string());
    const Actions second = readReport((db.folder() / "postazione2").string());
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(Rounds - Rounds / 3));
    ASSERT_EQ(second.size(), expected.size());
    for (const auto& [id, action] : second) {
        EXPECT_TRUE(expected.emplace(id, action).second) << "id " << id << " given to both stations";
    }
    Actions stored;
    for (const auto& row : db.rows("SELECT IdAzione, Descr, Onorari FROM Azioni ORDER BY IdAzione")) {
        stored[row[0].asLong()] = {row[1].asText(), row[2].asCurrency()};
    }
    EXPECT_EQ(stored, expected);
    // Each station's tariff actions (the even rounds of the 40 it kept)
    // numbered 1 to 20 by its last renumbering.
    std::vector<std::int32_t> oneToTwenty;
    for (std::int32_t n = 1; n <= 20; ++n) {
        oneToTwenty.push_back(n);
    }
    for (int station = 1; station <= 2; ++station) {
        std::vector<std::int32_t> numbers;
        for (const auto& row : db.rows("SELECT NOrdine FROM Azioni WHERE IsTariffa AND Descr LIKE 'postazione " +
                                       std::to_string(station) + " %' ORDER BY NOrdine")) {
            numbers.push_back(row[0].asLong());
        }
        EXPECT_EQ(numbers, oneToTwenty) << "station " << station;
    }
}

// The writer kills itself right after its 25th row: every row it wrote is
// there and whole, without any orderly close, and the server goes on.
TEST(ServerConcurrency, WriterKilledAfterItsWrites)
{
    TestDatabase db;
    closeConnections();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int round = 1; round <= 25; ++round) {
            (void)addAction(3, round);
        }
        raise(SIGKILL);
        _exit(1);
    }
    const int status = waitFor(child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 25);
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni WHERE NOT (Descr = 'postazione 3 voce ' || NOrdine AND "
                       "Onorari = NOrdine AND Data = DATE '2004-06-02' AND IsTariffa = (NOrdine % 2 = 0))")
                  .asLong(),
              0);
    EXPECT_EQ(addAction(3, 26), 26);
}

} // namespace
} // namespace avlor::test
