// Presses made by separate processes, as two workstations or a killed one
// make them: `avlor parcella --script` adding actions to one case file at
// once never leaves two actions holding one number nor loses a row, and a
// process killed at any moment of a press leaves the whole press or
// nothing of it.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

#include "WritingFixture.h"
#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"
#include "avlor/dialog/CaseFileLock.h"

namespace avlor::test {
namespace {

// Adds `n` tariff actions numbered 1 to n to case 7, in one script.
void addTariffRows(const TestDatabase& db, int n);

class PressProcesses : public WritingTest {
protected:
    struct Child {
        pid_t pid = -1;
        int out = -1; // the child's standard output
        int in = -1; // its standard input, when the script comes from it
    };

    // Starts `avlor parcella` on case 7 reading its script from standard
    // input, fed through Child::in.
    Child startFed() const
    {
        int input[2];
        if (::pipe2(input, O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe");
        }
        Child child = start("", {}, input[0]);
        ::close(input[0]);
        child.in = input[1];
        return child;
    }

    static void feed(const Child& child, const std::vector<std::string>& lines)
    {
        for (const std::string& line : lines) {
            const std::string text = line + "\n";
            ASSERT_EQ(::write(child.in, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        }
    }

    // Starts `avlor parcella` on case 7 with the script `lines`, its answer
    // lines readable from Child::out.
    Child start(const std::string& name, const std::vector<std::string>& lines, int input = -1) const
    {
        std::string script = "-";
        if (input < 0) {
            script = (db.folder() / (name + ".jsonl")).string();
            std::ofstream file(script, std::ios::trunc);
            for (const std::string& line : lines) {
                file << line << '\n';
            }
        }
        const std::vector<std::string> words = {AVLOR_COMMAND, "--db",       db.location(), "parcella",
                                                "--pratica",   "7",          "--data",      "15/03/2005",
                                                "--oggi",      "15/03/2005", "--script",    script};
        int pipeEnds[2];
        if (::pipe2(pipeEnds, O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe");
        }
        const pid_t pid = ::fork();
        if (pid == 0) {
            if (input >= 0) {
                ::dup2(input, 0);
            }
            ::dup2(pipeEnds[1], 1);
            ::close(pipeEnds[0]);
            ::close(pipeEnds[1]);
            const int quiet = ::open("/dev/null", O_WRONLY);
            ::dup2(quiet, 2);
            std::vector<char*> argv;
            for (const std::string& word : words) {
                argv.push_back(const_cast<char*>(word.c_str()));
            }
            argv.push_back(nullptr);
            ::execv(AVLOR_COMMAND, argv.data());
            ::_exit(127);
        }
        ::close(pipeEnds[1]);
        return Child{pid, pipeEnds[0]};
    }

    // Waits for the first answer line: the dialog is loaded.
    static void waitForFirstLine(const Child& child)
    {
        char c = 0;
        while (::read(child.out, &c, 1) == 1 && c != '\n') { }
    }

    // The exit status, or 128 + the signal that ended the child.
    static int finish(const Child& child)
    {
        if (child.in >= 0) {
            ::close(child.in);
        }
        char buffer[4096];
        while (::read(child.out, buffer, sizeof buffer) > 0) { }
        ::close(child.out);
        int status = 0;
        ::waitpid(child.pid, &status, 0);
        return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    }

    static std::vector<std::string> adding(const std::string& descr)
    {
        return {R"({"imposta": "FNumOrdine", "valore": "1"})", R"({"imposta": "cmbVoce", "valore": ")" + descr + "\"}",
                R"({"click": "cmdAggiungi"})"};
    }

    // The tariff numbers of case 7, lowest first.
    [[nodiscard]] std::vector<long> tariffNumbers() const
    {
        std::vector<long> result;
        for (const auto& row : db.rows("SELECT NOrdine FROM Azioni WHERE IdPra = 7 AND IsTariffa = 'True' "
                                       "ORDER BY NOrdine")) {
            result.push_back(row[0].toLong());
        }
        return result;
    }

    static std::vector<long> oneTo(std::size_t n)
    {
        std::vector<long> result(n);
        for (std::size_t i = 0; i < n; ++i) {
            result[i] = static_cast<long>(i) + 1;
        }
        return result;
    }
};

// Adds `n` tariff actions numbered 1 to n to case 7, in one script.
void addTariffRows(const TestDatabase& db, int n)
{
    std::string rows;
    for (int i = 1; i <= n; ++i) {
        rows += "INSERT INTO Azioni (IdPra, NOrdine, IsTariffa, Descr, Data) VALUES (7, " + std::to_string(i) +
            ", 'True', 'r', '2005-03-10');";
    }
    db.exec(rows);
}

TEST_F(PressProcesses, TwoProcessesAddingAtOnceTakeTurns)
{
    // Enough rows that each press takes a while, so that the two overlap.
    constexpr int existing = 300;
    addTariffRows(db, existing);
    constexpr int presses = 10;
    const Child a = startFed();
    const Child b = startFed();
    // Both dialogs loaded first, then the presses sent to both at once.
    feed(a, {R"({"stato": true})"});
    feed(b, {R"({"stato": true})"});
    waitForFirstLine(a);
    waitForFirstLine(b);
    std::vector<std::string> first;
    std::vector<std::string> second;
    for (int i = 0; i < presses; ++i) {
        for (const auto& line : adding("uno " + std::to_string(i))) {
            first.push_back(line);
        }
        for (const auto& line : adding("due " + std::to_string(i))) {
            second.push_back(line);
        }
    }
    feed(a, first);
    feed(b, second);
    // Both outputs are read at once, so that neither process waits on its
    // output while the other works.
    int statusA = -1;
    int statusB = -1;
    std::thread readA([&] { statusA = finish(a); });
    std::thread readB([&] { statusB = finish(b); });
    readA.join();
    readB.join();
    EXPECT_EQ(statusA, 0);
    EXPECT_EQ(statusB, 0);
    EXPECT_EQ(actionCount(), existing + 2 * presses);
    // Every press put its action at 1 and moved the others up: the numbers
    // run unbroken, each held once.
    EXPECT_EQ(tariffNumbers(), oneTo(existing + 2 * presses));
}

TEST_F(PressProcesses, AKilledPressLeavesAllOfItOrNothing)
{
    constexpr int existing = 2000;
    addTariffRows(db, existing);
    std::vector<std::string> script{R"({"stato": true})"};
    for (const auto& line : adding("nuova")) {
        script.push_back(line);
    }

    // How long a press takes here, from the loaded dialog to the end.
    const auto started = std::chrono::steady_clock::now();
    const Child timed = start("misura", script);
    waitForFirstLine(timed);
    const auto loaded = std::chrono::steady_clock::now();
    ASSERT_EQ(finish(timed), 0);
    const auto pressTime = std::chrono::steady_clock::now() - loaded;
    static_cast<void>(started);
    std::size_t count = existing + 1;
    ASSERT_EQ(tariffNumbers(), oneTo(count));

    int leftNothing = 0;
    int leftWhole = 0;
    constexpr int rounds = 10;
    for (int round = 0; round < rounds; ++round) {
        const Child child = start("uccisa", script);
        waitForFirstLine(child);
        std::this_thread::sleep_for(pressTime * (round + 1) / (rounds + 1));
        ::kill(child.pid, SIGKILL);
        const int status = finish(child);
        const std::size_t now = static_cast<std::size_t>(actionCount());
        ASSERT_TRUE(now == count || now == count + 1) << "round " << round << ": " << now << " actions";
        if (now == count) {
            EXPECT_EQ(status, 128 + SIGKILL);
            ++leftNothing;
        } else {
            ++leftWhole;
        }
        count = now;
        // Either way one unbroken sequence, every number held once.
        ASSERT_EQ(tariffNumbers(), oneTo(count)) << "round " << round;
    }
    EXPECT_GT(leftNothing, 0);
    RecordProperty("left_nothing", leftNothing);
    RecordProperty("left_whole", leftWhole);
}

TEST_F(PressProcesses, APressWaitsForTheOneHoldingItsCaseFile)
{
    if (!TestDatabase::onPostgresql()) {
        GTEST_SKIP() << "SQLite lets one writer at a time into the whole file: there is no case file to wait on";
    }
    tariff(1, "a");
    tariff(1, "altra", 9);
    // Another workstation in the middle of a press on case file 7.
    const std::string elsewhere = db.location() + "?application_name=avlor_altra_postazione";
    const std::shared_ptr<Connection> other = connectionFor(elsewhere);
    {
        TransactionScope holding(other);
        other->lockForTransaction(dialog::SpazioLockAzioniPratica, 7);

        db.connection()->setStatementTimeLimit(std::chrono::milliseconds(400));
        auto form = open(7, "15/03/2005");
        typeTariff(*form, "1", "attesa");
        const std::string database = wholeDatabase();
        form->click("cmdAggiungi");
        ASSERT_EQ(messages().size(), 1u);
        EXPECT_EQ(messages()[0].icon, MsgIcon::Critical);
        // It waited a tenth less than the 400 ms a statement may run, and
        // says so.
        EXPECT_NE(messages()[0].text.find("bloccate in scrittura per 360 ms"), std::string::npos) << messages()[0].text;
        EXPECT_EQ(wholeDatabase(), database);

        // Another case file does not wait.
        forgetMessages();
        auto altra = open(9, "15/03/2005");
        typeTariff(*altra, "1", "libera");
        altra->click("cmdAggiungi");
        EXPECT_EQ(messages(), std::vector<Shown>{});
        EXPECT_EQ(numbers(true, 9), "altra:2 libera:1");
        holding.commit();
    }
    // Once the other press is over, the same entry goes in.
    db.connection()->setStatementTimeLimit(Connection::DefaultStatementTimeLimit);
    auto form = open(7, "15/03/2005");
    typeTariff(*form, "1", "attesa");
    form->click("cmdAggiungi");
    EXPECT_EQ(numbers(true), "a:2 attesa:1");
    closeConnections(elsewhere);
}

} // namespace
} // namespace avlor::test
