#include "platform/windows/host/database_object.h"

#include <algorithm>

#include "platform/automation/error.h"
#include "platform/windows/com/automation_values.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_error.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/com/late_bound_object.h"
#include "platform/windows/host/host_connection.h"

#include <prot_database.h>

namespace prot {

namespace {

constexpr std::int32_t error_object_missing = static_cast<std::int32_t>(0x800A005B);
constexpr long standard_flag = 0;

constexpr std::string_view required_members[] = {"QueryValue", "QueryArray", "Execute", "DateLiteral",
                                                 "LikeWildcard"};

/// A host's object that has the interface.
class DatabaseByInterface : public DatabaseObject {
public:
    DatabaseByInterface(const ComPtr<IDispatch>& object, ComPtr<IProtDatabase> known)
        : DatabaseObject(object), object_(std::move(known)) {}

    Value query_value(std::string_view sql) override {
        const Bstr text(sql);
        Variant value;
        connection_.ask([&] { require(object_->QueryValue(text.borrow(), value.receive())); });
        return to_value(value.borrow(), "QueryValue");
    }
    RowSet query_array(std::string_view sql) override {
        const Bstr text(sql);
        Variant rows;
        connection_.ask([&] { require(object_->QueryArray(text.borrow(), rows.receive())); });
        return to_row_set(rows.borrow(), "QueryArray");
    }
    void execute(std::string_view sql) override {
        const Bstr text(sql);
        connection_.ask([&] { require(object_->Execute(text.borrow())); });
    }
    std::string date_literal(Date date) override {
        Bstr literal;
        connection_.ask(
            [&] { require(object_->DateLiteral(date.serial, standard_flag, literal.receive())); });
        return literal.text();
    }
    std::string like_wildcard() override {
        Bstr wildcard;
        connection_.ask([&] { require(object_->LikeWildcard(standard_flag, wildcard.receive())); });
        return wildcard.text();
    }
    std::optional<std::array<std::string, 10>> connection_info(int code) override {
        Variant texts;
        const HRESULT result = object_->ConnectionInfo(code, texts.receive());
        if (result == E_NOTIMPL) return std::nullopt;
        require(result);
        return to_ten_texts(texts.borrow(), "ConnectionInfo");
    }
    void require_connection() override { connection_.require(); }

private:
    void require(HRESULT result) const {
        if (FAILED(result)) throw error_of_call(result, object_.borrow(), __uuidof(IProtDatabase));
    }

    ComPtr<IProtDatabase> object_;
    HostConnection connection_;
};

/// A host's object that has the members, if only by name.
class DatabaseByName : public DatabaseObject {
public:
    explicit DatabaseByName(const ComPtr<IDispatch>& object)
        : DatabaseObject(object), object_(object, "oDBU") {}

    std::string missing_members() {
        std::string missing;
        for (const std::string_view member : required_members)
            if (!object_.has(member)) missing.append(missing.empty() ? "" : ", ").append(member);
        return missing;
    }

    Value query_value(std::string_view sql) override {
        const Bstr text(sql);
        return to_value(ask("QueryValue", {argument(text.borrow())}).borrow(), "QueryValue");
    }
    RowSet query_array(std::string_view sql) override {
        const Bstr text(sql);
        return to_row_set(ask("QueryArray", {argument(text.borrow())}).borrow(), "QueryArray");
    }
    void execute(std::string_view sql) override {
        const Bstr text(sql);
        ask("Execute", {argument(text.borrow())});
    }
    std::string date_literal(Date date) override {
        const Variant literal = ask("DateLiteral", {argument(date.serial), argument(standard_flag)});
        return to_text(literal.borrow(), "DateLiteral");
    }
    std::string like_wildcard() override {
        return to_text(ask("LikeWildcard", {argument(standard_flag)}).borrow(), "LikeWildcard");
    }
    std::optional<std::array<std::string, 10>> connection_info(int code) override {
        if (!object_.has("ConnectionInfo")) return std::nullopt;
        Variant texts;
        try {
            texts = object_.call("ConnectionInfo", {argument(long{code})});
        } catch (const AutomationError& error) {
            if (error.number() == E_NOTIMPL) return std::nullopt;
            throw;
        }
        return to_ten_texts(texts.borrow(), "ConnectionInfo");
    }
    void require_connection() override { connection_.require(); }

private:
    Variant ask(std::string_view member, std::initializer_list<VARIANT> arguments) {
        return connection_.ask([&] { return object_.call(member, arguments); });
    }

    LateBoundObject object_;
    HostConnection connection_;
};

}  // namespace

std::unique_ptr<DatabaseObject> database_object(IDispatch* object) {
    if (!object)
        throw AutomationError(error_object_missing, std::string(),
                              "Es wurde kein Datenbankobjekt übergeben (oDBU ist Nothing).");
    const auto shared = ComPtr<IDispatch>::share(object);
    if (auto known = shared.query<IProtDatabase>())
        return std::make_unique<DatabaseByInterface>(shared, std::move(known));
    auto database = std::make_unique<DatabaseByName>(shared);
    if (const std::string missing = database->missing_members(); !missing.empty())
        throw AutomationError(error_member_unknown, std::string(),
                              "Dem Datenbankobjekt fehlt: " + missing + ".");
    return database;
}

}  // namespace prot
