#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

#include "platform/portable/odbc/odbc_database.h"
#include "tests/unit/support/database_answers.h"

namespace prot {
namespace {

using testing::StartsWith;

/// A port of this machine that connections may come to and that nobody answers at.
class SilentServer {
public:
    SilentServer() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(socket_, any, size), 0);
        EXPECT_EQ(getsockname(socket_, any, &size), 0);
        port_ = ntohs(address.sin_port);
    }
    ~SilentServer() { close(socket_); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    void listen() const { EXPECT_EQ(::listen(socket_, 1), 0); }
    int port() const { return port_; }

private:
    const int socket_;
    int port_ = 0;
};

/// The real driver, with the time limit of one second.
AutomationError connecting_to(int port) {
    return error_of([port] {
        OdbcSource source;
        source.connection =
            ConnectionString("Driver=FreeTDS;Server=127.0.0.1;UID=u;PWD=geheim;TDS_Version=7.4");
        source.connection.add("Port", std::to_string(port));
        source.login_seconds = 1;
        open_odbc_database(std::move(source));
    });
}

TEST(FreeTds, SaysThatAServerRefuses) {
    const SilentServer server;  // without listen, the system refuses
    const AutomationError error = connecting_to(server.port());
    EXPECT_THAT(error.description(), StartsWith("Die Verbindung zur Datenbank kommt nicht zustande ["));
    EXPECT_LT(error.number(), 0);
    EXPECT_EQ(error.source(), "ODBC");
}

TEST(FreeTds, GivesUpAServerThatDoesNotAnswer) {
    const SilentServer server;
    server.listen();
    const auto begin = std::chrono::steady_clock::now();
    const AutomationError error = connecting_to(server.port());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(error.description().find("geheim"), std::string::npos) << error.description();
    EXPECT_LT(error.number(), 0);
}

}  // namespace
}  // namespace prot
