#include <algorithm>
#include <memory>

#include "tests/odbc/double/statement.h"
#include "tests/odbc/double/transfer.h"

// What a driver manager looks for in a driver: environment, connection and diagnostics. Sources: ODBC, each
// function's page.

namespace prot::odbc_double {

namespace {

struct Environment : Handle {};

Handle* handle_of(SQLSMALLINT type, SQLHANDLE handle) {
    switch (type) {
        case SQL_HANDLE_ENV:
            return static_cast<Environment*>(handle);
        case SQL_HANDLE_DBC:
            return static_cast<Connection*>(handle);
        case SQL_HANDLE_STMT:
            return static_cast<Statement*>(handle);
        default:
            return nullptr;
    }
}

Connection& connection_of(SQLHDBC handle) { return *static_cast<Connection*>(handle); }

std::string text_information(const Connection& connection, SQLUSMALLINT type) {
    switch (type) {
        case SQL_DBMS_NAME:
            return "Microsoft SQL Server";
        case SQL_DBMS_VER:
            return "13.00.0000";
        case SQL_SERVER_NAME:
            return connection.server();
        case SQL_DATABASE_NAME:
            return connection.database();
        case SQL_DRIVER_ODBC_VER:
            return "03.80";
        default:
            throw Failure("HY096", 0, "Invalid information type");
    }
}

struct NumberInformation {
    SQLUSMALLINT type;
    SQLUSMALLINT value;
};
constexpr NumberInformation numbers[] = {
    {SQL_MAX_CONCURRENT_ACTIVITIES, 1},
    {SQL_CURSOR_COMMIT_BEHAVIOR, SQL_CB_CLOSE},
    {SQL_CURSOR_ROLLBACK_BEHAVIOR, SQL_CB_CLOSE},
};

void set_connection_attribute(Connection& connection, SQLINTEGER attribute, std::size_t value) {
    switch (attribute) {
        case SQL_ATTR_LOGIN_TIMEOUT:
        case SQL_ATTR_ACCESS_MODE:  // a wish that many drivers do not heed
            return;
        case SQL_ATTR_AUTOCOMMIT:
            return connection.set_autocommit(value == SQL_AUTOCOMMIT_ON);
        case SQL_ATTR_TXN_ISOLATION:
            return connection.set_isolation(static_cast<SQLUINTEGER>(value));
        default:
            throw Failure("HY092", 0, "Invalid attribute/option identifier");
    }
}

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* handle) {
    if (type == SQL_HANDLE_ENV) {
        *handle = new Environment;
        return SQL_SUCCESS;
    }
    return handle_of(type == SQL_HANDLE_DBC ? SQL_HANDLE_ENV : SQL_HANDLE_DBC, parent)->answer([&] {
        if (type == SQL_HANDLE_DBC)
            *handle = new Connection;
        else if (type == SQL_HANDLE_STMT)
            *handle = new Statement(connection_of(parent));
        else
            throw Failure("HYC00", 0, "This driver has no such handle");
    });
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
    switch (type) {
        case SQL_HANDLE_ENV:
            delete static_cast<Environment*>(handle);
            return SQL_SUCCESS;
        case SQL_HANDLE_DBC:
            delete static_cast<Connection*>(handle);
            return SQL_SUCCESS;
        case SQL_HANDLE_STMT:
            delete static_cast<Statement*>(handle);
            return SQL_SUCCESS;
        default:
            return SQL_INVALID_HANDLE;
    }
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    return attribute == SQL_ATTR_ODBC_VERSION && value == as_attribute(SQL_OV_ODBC3) ? SQL_SUCCESS
                                                                                     : SQL_ERROR;
}

SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC handle, SQLHWND, SQLWCHAR* text, SQLSMALLINT size,
                                    SQLWCHAR* completed, SQLSMALLINT room, SQLSMALLINT* completed_size,
                                    SQLUSMALLINT) {
    return connection_of(handle).answer([&] {
        const std::string completed_text = text_of(text, size);
        connection_of(handle).connect(completed_text);
        put_text(completed_text, completed, room, completed_size);
    });
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC handle) {
    return connection_of(handle).answer([&] { connection_of(handle).disconnect(); });
}

SQLRETURN SQL_API SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT type, SQLPOINTER target, SQLSMALLINT room,
                              SQLSMALLINT* size) {
    return connection_of(handle).answer([&] {
        if (type == SQL_GETDATA_EXTENSIONS) {
            *static_cast<SQLUINTEGER*>(target) = 0;
            return;
        }
        const auto* const number = std::ranges::find(numbers, type, &NumberInformation::type);
        if (number != std::end(numbers)) {
            *static_cast<SQLUSMALLINT*>(target) = number->value;
            return;
        }
        constexpr auto bytes_of_unit = static_cast<SQLSMALLINT>(sizeof(SQLWCHAR));
        SQLSMALLINT units = 0;
        put_text(text_information(connection_of(handle), type), static_cast<SQLWCHAR*>(target),
                 static_cast<SQLSMALLINT>(room / bytes_of_unit), &units);
        if (size != nullptr) *size = static_cast<SQLSMALLINT>(units * bytes_of_unit);
    });
}

SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    return connection_of(handle).answer([&] {
        set_connection_attribute(connection_of(handle), attribute, reinterpret_cast<std::size_t>(value));
    });
}

SQLRETURN SQL_API SQLGetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER,
                                     SQLINTEGER*) {
    return connection_of(handle).answer([&] {
        if (attribute != SQL_ATTR_CONNECTION_DEAD)
            throw Failure("HY092", 0, "Invalid attribute/option identifier");
        *static_cast<SQLUINTEGER*>(value) = connection_of(handle).is_lost() ? SQL_CD_TRUE : SQL_CD_FALSE;
    });
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT completion) {
    return connection_of(handle).answer(
        [&] { connection_of(handle).end_transaction(completion == SQL_COMMIT); });
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* message, SQLSMALLINT room, SQLSMALLINT* size) {
    const Handle* const known = handle_of(type, handle);
    if (known == nullptr) return SQL_INVALID_HANDLE;
    if (number < 1 || static_cast<std::size_t>(number) > known->records().size()) return SQL_NO_DATA;
    const Record& record = known->records()[static_cast<std::size_t>(number) - 1];
    put_text(record.state, state, 6, nullptr);
    if (native != nullptr) *native = record.native;
    return put_text(record.message, message, room, size) ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

/// It has none, but unixODBC asks for no records of a driver without this function.
SQLRETURN SQL_API SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER, SQLSMALLINT,
                                   SQLSMALLINT*) {
    return SQL_ERROR;
}

}  // extern "C"

}  // namespace prot::odbc_double
