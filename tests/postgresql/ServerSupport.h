#pragma once
// Helpers of the PostgreSQL backend's own tests: databases without the
// practice schema, locations that fail in a known way, and a session of
// another program (raw libpq) that sees the server as any client does.
#include <libpq-fe.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"

namespace avlor::test {

// The connection used to make and drop databases on the test server.
inline std::shared_ptr<Connection> serverAdmin() { return connectionFor(TestDatabase::serverUri()); }

// An empty database on the test server (no practice schema), dropped with
// the object.
class EmptyServerDatabase {
public:
    explicit EmptyServerDatabase(const std::string& purpose)
    {
        static int made = 0;
        name_ = "avlor_empty_" + purpose + "_" + std::to_string(getpid()) + "_" + std::to_string(++made);
        serverAdmin()->executeScript("DROP DATABASE IF EXISTS " + name_ + " WITH (FORCE)");
        serverAdmin()->executeScript("CREATE DATABASE " + name_ +
                                     " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' "
                                     "LC_CTYPE 'C'");
        location_ = TestDatabase::withDatabase(TestDatabase::serverUri(), name_);
    }
    ~EmptyServerDatabase()
    {
        closeConnections(location_);
        try {
            serverAdmin()->executeScript("DROP DATABASE IF EXISTS " + name_ + " WITH (FORCE)");
        } catch (...) {
            // The server went away: its databases go with it.
        }
    }
    EmptyServerDatabase(const EmptyServerDatabase&) = delete;
    EmptyServerDatabase& operator=(const EmptyServerDatabase&) = delete;

    [[nodiscard]] const std::string& location() const noexcept { return location_; }
    [[nodiscard]] const std::string& name() const noexcept { return name_; }

private:
    std::string name_;
    std::string location_;
};

// A TCP port on 127.0.0.1 where nothing listens (taken from the system and
// released again).
inline int freePort()
{
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t size = sizeof address;
    if (probe < 0 || bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("cannot find a free port");
    }
    close(probe);
    return ntohs(address.sin_port);
}

// `uri` with the user part replaced by `userInfo` ("avlor_test:wrong").
inline std::string withUserInfo(const std::string& uri, const std::string& userInfo)
{
    const std::size_t start = uri.find("://") + 3;
    const std::size_t at = uri.find('@', start);
    const std::size_t host = at == std::string::npos ? start : at + 1;
    return uri.substr(0, start) + userInfo + "@" + uri.substr(host);
}

// `uri` with its host and port replaced by 127.0.0.1:`port`.
inline std::string withPort(const std::string& uri, int port)
{
    const std::size_t start = uri.find("://") + 3;
    const std::size_t at = uri.find('@', start);
    const std::size_t host = at == std::string::npos ? start : at + 1;
    const std::size_t path = uri.find_first_of("/?", host);
    return uri.substr(0, host) + "127.0.0.1:" + std::to_string(port) +
        (path == std::string::npos ? "" : uri.substr(path));
}

// A session of another program on `location`, through libpq alone.
class RawSession {
public:
    explicit RawSession(const std::string& location) : session_(PQconnectdb(location.c_str()))
    {
        if (PQstatus(session_) != CONNECTION_OK) {
            const std::string message = PQerrorMessage(session_);
            PQfinish(session_);
            throw std::runtime_error("cannot open " + location + ": " + message);
        }
    }
    ~RawSession() { PQfinish(session_); }
    RawSession(const RawSession&) = delete;
    RawSession& operator=(const RawSession&) = delete;

    // The first column of the first row as text ("" for none or null);
    // throws on a failing statement.
    std::string text(const std::string& sql) const
    {
        PGresult* result = PQexec(session_, sql.c_str());
        const ExecStatusType status = PQresultStatus(result);
        std::string value;
        if (status == PGRES_TUPLES_OK && PQntuples(result) > 0 && PQgetisnull(result, 0, 0) == 0) {
            value = PQgetvalue(result, 0, 0);
        }
        const std::string message = PQresultErrorMessage(result);
        PQclear(result);
        if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) {
            throw std::runtime_error(message + " [" + sql + "]");
        }
        return value;
    }
    void exec(const std::string& sql) const { (void)text(sql); }

private:
    PGconn* session_;
};

} // namespace avlor::test
