#pragma once

#include <array>
#include <string>

namespace prot {

/// The host's connection-information service.
class ConnectionInformation {
public:
    virtual ~ConnectionInformation() = default;

    /// Ten texts about the connection for `code`. With code 1206 the tenth is the name of the database
    /// server.
    virtual std::array<std::string, 10> fields(int code) = 0;
};

}  // namespace prot
