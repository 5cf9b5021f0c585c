#include "platform/windows/host/database_object.h"

#include <gtest/gtest.h>

#include "platform/windows/com/bstr.h"
#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::answers;
using test::answers_text;
using test::Call;
using test::error_of;
using test::fails;
using test::InterfaceDatabase;
using test::long_variant;
using test::PlainObject;
using test::raises;
using test::ScriptObject;
using test::text_variant;
using test::type_mismatch;

using Calls = std::vector<std::string>;

constexpr std::int32_t server_number = static_cast<std::int32_t>(0x80040E37);

/// An array of `columns` times `rows` numbers, counted in the order of memory; the rows start at 1.
VARIANT table(ULONG columns, ULONG rows) {
    SAFEARRAYBOUND bounds[] = {{columns, 0}, {rows, 1}};
    VARIANT variant = long_variant(0);
    variant.vt = VT_ARRAY | VT_I4;
    variant.parray = SafeArrayCreate(VT_I4, 2, bounds);
    for (ULONG i = 0; i < columns * rows; ++i)
        static_cast<LONG*>(variant.parray->pvData)[i] = static_cast<LONG>(i);
    return variant;
}

VARIANT ten_texts() {
    VARIANT variant = long_variant(0);
    variant.vt = VT_ARRAY | VT_BSTR;
    variant.parray = SafeArrayCreateVector(VT_BSTR, 1, 10);
    for (LONG i = 1; i <= 10; ++i)
        SafeArrayPutElement(variant.parray, &i, Bstr("Text " + std::to_string(i)).borrow());
    return variant;
}

/// Members by name that answer as a host does.
template <class Object>
void furnish(Object& object, Calls& calls) {
    const auto recording = [&calls](const std::string& name, test::Method method) {
        return [&calls, name, method](Call& call) {
            std::string text = name;
            for (const VARIANT* argument : call.arguments)
                text += " " + (argument->vt == VT_BSTR   ? text_of(argument->bstrVal)
                               : argument->vt == VT_DATE ? std::to_string(argument->date)
                               : argument->vt == VT_I4   ? std::to_string(argument->lVal)
                                                         : "?");
            calls.push_back(text);
            return method(call);
        };
    };
    object.set("QueryValue", recording("QueryValue", answers(long_variant(7))));
    object.set("QueryArray", recording("QueryArray", answers(table(2, 3))));
    object.set("Execute", recording("Execute", answers(long_variant(1))));
    object.set("DateLiteral", recording("DateLiteral", answers_text("'20260305'")));
    object.set("LikeWildcard", recording("LikeWildcard", answers_text("%")));
    object.set("ConnectionInfo", recording("ConnectionInfo", answers(ten_texts())));
}

/// What every kind of database object does, whichever way its members are reached.
void expect_all_members(DatabaseObject& database, const Calls& calls) {
    EXPECT_EQ(database.query_value("SELECT 'ä'"), Value(std::int64_t{7}));
    const RowSet rows = database.query_array("SELECT 2");
    ASSERT_EQ(rows.columns(), 2U);
    ASSERT_EQ(rows.rows(), 3U);
    EXPECT_EQ(rows.at(1, 2).integer(), 5);
    EXPECT_EQ(rows.first_row(), 1);
    database.execute("DELETE x");
    EXPECT_EQ(database.date_literal(Date{46000.5}), "'20260305'");
    EXPECT_EQ(database.like_wildcard(), "%");
    const auto texts = database.connection_info(1206);
    ASSERT_TRUE(texts);
    EXPECT_EQ((*texts)[9], "Text 10");
    EXPECT_EQ(calls, (Calls{"QueryValue SELECT 'ä'", "QueryArray SELECT 2", "Execute DELETE x",
                            "DateLiteral 46000.500000 0", "LikeWildcard 0", "ConnectionInfo 1206"}));
}

TEST(DatabaseObject, ANullObjectIsAnErrorThatNamesIt) {
    const AutomationError error = error_of([] { database_object(nullptr); });
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x800A005B));
    EXPECT_EQ(error.description(), "Es wurde kein Datenbankobjekt übergeben (oDBU ist Nothing).");
}

TEST(DatabaseObject, ReachesMembersByNameInAnyKindOfObject) {
    PlainObject plain;
    ScriptObject script;
    Calls plain_calls, script_calls;
    furnish(plain, plain_calls);
    furnish(script, script_calls);
    expect_all_members(*database_object(&plain), plain_calls);
    expect_all_members(*database_object(&script), script_calls);
    EXPECT_EQ(plain.references, 1U);
    EXPECT_EQ(script.references, 1U);
}

TEST(DatabaseObject, ReachesMembersByTheInterfaceWhereThereIsOne) {
    InterfaceDatabase object;
    const Variant rows = Variant::adopt(table(2, 3)), texts = Variant::adopt(ten_texts());
    object.value = long_variant(7);
    object.rows = rows.borrow();
    object.texts = texts.borrow();
    expect_all_members(*database_object(&object), object.calls);
    EXPECT_EQ(object.references, 1U);
}

TEST(DatabaseObject, MissingMembersAreNamedAtOnceBeforeAnyStatement) {
    PlainObject object;
    Calls calls;
    furnish(object, calls);
    PlainObject partial;
    for (const char* name : {"QueryValue", "Execute", "DateLiteral"}) partial.set(name, object.methods[name]);
    const AutomationError error = error_of([&] { database_object(&partial); });
    EXPECT_EQ(error.number(), error_member_unknown);
    EXPECT_EQ(error.description(), "Dem Datenbankobjekt fehlt: QueryArray, LikeWildcard.");
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(partial.references, 1U);
}

TEST(DatabaseObject, WithoutConnectionInformationThereIsNone) {
    Calls calls;
    PlainObject lacking, refusing, raising;
    furnish(refusing, calls);
    refusing.set("ConnectionInfo", fails(E_NOTIMPL));
    furnish(raising, calls);
    raising.set("ConnectionInfo", raises(E_NOTIMPL, "", ""));
    for (const auto& [name, method] : refusing.methods)
        if (name != "ConnectionInfo") lacking.set(name, method);
    for (PlainObject* const object : {&lacking, &refusing, &raising})
        EXPECT_EQ(database_object(object)->connection_info(1206), std::nullopt);
    InterfaceDatabase typed;
    typed.connection_info_result = E_NOTIMPL;
    EXPECT_EQ(database_object(&typed)->connection_info(1206), std::nullopt);
}

TEST(DatabaseObject, AConnectionInformationThatFailsIsAnError) {
    PlainObject object;
    Calls calls;
    furnish(object, calls);
    object.set("ConnectionInfo", raises(server_number, "Host", "keine Verbindung"));
    EXPECT_EQ(error_of([&] { database_object(&object)->connection_info(1206); }).description(),
              "keine Verbindung");
    InterfaceDatabase typed;
    typed.failure = AutomationError(server_number, "Host", "keine Verbindung");
    EXPECT_EQ(error_of([&] { database_object(&typed)->connection_info(1206); }).description(),
              "keine Verbindung");
}

/// All calls that can fail on the server.
std::vector<std::function<void(Database&)>> statements() {
    return {[](Database& database) { database.query_value("SELECT 1"); },
            [](Database& database) { database.query_array("SELECT 2"); },
            [](Database& database) { database.execute("DELETE x"); },
            [](Database& database) { database.date_literal(Date{46000.0}); },
            [](Database& database) { database.like_wildcard(); }};
}

void expect_hosts_error(Database& database) {
    for (const auto& statement : statements()) {
        const AutomationError error = error_of([&] { statement(database); });
        EXPECT_EQ(error.number(), server_number);
        EXPECT_EQ(error.source(), "Host.Db\r\nTreiber");
        EXPECT_EQ(error.description(), "Tabelle „x“ fehlt");
    }
    EXPECT_NO_THROW(database.require_connection()) << "a failed statement is no lost connection";
}

TEST(DatabaseObject, PassesTheHostsErrorsUnchanged) {
    PlainObject object;
    for (const char* name : {"QueryValue", "QueryArray", "Execute", "DateLiteral", "LikeWildcard"})
        object.set(name, raises(server_number, "Host.Db\r\nTreiber", "Tabelle „x“ fehlt"));
    expect_hosts_error(*database_object(&object));
    InterfaceDatabase typed;
    typed.failure = AutomationError(server_number, "Host.Db\r\nTreiber", "Tabelle „x“ fehlt");
    expect_hosts_error(*database_object(&typed));
}

void expect_lost(Database& database, const std::function<std::size_t()>& questions) {
    EXPECT_EQ(error_of([&] { database.execute("DELETE x"); }).number(), RPC_E_DISCONNECTED);
    const std::size_t asked = questions();
    for (const auto& statement : statements())
        EXPECT_EQ(error_of([&] { statement(database); }).number(), RPC_E_DISCONNECTED);
    EXPECT_EQ(error_of([&] { database.require_connection(); }).number(), RPC_E_DISCONNECTED);
    EXPECT_EQ(questions(), asked) << "an object that is gone is asked no more";
}

TEST(DatabaseObject, AHostThatIsGoneAnswersEveryFurtherStatementWithThatError) {
    PlainObject object;
    Calls calls;
    furnish(object, calls);
    object.set("Execute", fails(RPC_E_DISCONNECTED));
    expect_lost(*database_object(&object), [&] { return object.flags_seen.size(); });
    InterfaceDatabase typed;
    typed.bare_failure = RPC_E_DISCONNECTED;
    expect_lost(*database_object(&typed), [&] { return typed.calls.size(); });
}

TEST(DatabaseObject, AnAnswerOfTheWrongKindNamesTheMember) {
    PlainObject object;
    Calls calls;
    furnish(object, calls);
    object.set("QueryValue", answers(table(1, 1)));
    object.set("QueryArray", answers(long_variant(1)));
    VARIANT null = long_variant(0);
    null.vt = VT_NULL;
    object.set("DateLiteral", answers(null));
    object.set("LikeWildcard", answers(null));
    const auto database = database_object(&object);
    const char* const descriptions[] = {
        "QueryValue lieferte einen Wert vom Typ Feld, erwartet ist ein einzelner Wert.",
        "QueryArray lieferte einen Wert vom Typ Zahl, erwartet ist ein Feld (Spalte, Zeile).",
        nullptr,
        "DateLiteral lieferte einen Wert vom Typ Null, erwartet ist ein Text.",
        "LikeWildcard lieferte einen Wert vom Typ Null, erwartet ist ein Text.",
    };
    const auto all = statements();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!descriptions[i]) continue;
        const AutomationError error = error_of([&] { all[i](*database); });
        EXPECT_EQ(error.number(), type_mismatch);
        EXPECT_EQ(error.description(), descriptions[i]);
    }
}

TEST(DatabaseObject, WithoutARowThereIsNullAndNoRows) {
    InterfaceDatabase object;  // leaves what it answers Empty
    const auto database = database_object(&object);
    EXPECT_TRUE(is_null(database->query_value("SELECT 1")));
    EXPECT_TRUE(database->query_array("SELECT 2").empty());
}

TEST(DatabaseObject, KeepsTheObjectForAsLongAsItLives) {
    PlainObject object;
    Calls calls;
    furnish(object, calls);
    InterfaceDatabase typed;
    auto by_name = database_object(&object);
    auto by_interface = database_object(&typed);
    EXPECT_GT(object.references, 1U);
    EXPECT_GT(typed.references, 1U);
    EXPECT_EQ(by_name->host_object().borrow(), &object);
    EXPECT_EQ(by_interface->host_object().borrow(), &typed);
    by_name.reset();
    by_interface.reset();
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(typed.references, 1U);
}

}  // namespace
}  // namespace prot
