#include "tests/com/component/connection.h"

#include <array>
#include <string>
#include <string_view>

namespace prottest {

namespace {

VARIANT nothing() {
    VARIANT variant;
    VariantInit(&variant);
    return variant;
}

VARIANT object_variant(IDispatch* object) {
    VARIANT variant = nothing();
    variant.vt = VT_DISPATCH;
    variant.pdispVal = object;
    object->AddRef();
    return variant;
}

VARIANT copy_of(const VARIANT& variant) {
    VARIANT copy = nothing();
    if (FAILED(VariantCopy(&copy, const_cast<VARIANT*>(&variant)))) throw std::bad_alloc();
    return copy;
}

/// The first field of a row; Item(0) of the collection of fields is itself.
class Field : public ScriptObject<Field> {
public:
    explicit Field(const VARIANT& value) : value_(copy_of(value)) {}
    ~Field() override { VariantClear(&value_); }

    static std::span<const Member> members() {
        static const auto table = std::to_array<Member>({
            {L"Value", [](Field& field, const DISPPARAMS&) { return copy_of(field.value_); }},
            {L"Item", [](Field& field, const DISPPARAMS&) { return object_variant(&field); }},
        });
        return table;
    }

private:
    VARIANT value_;
};

/// The tenth of the texts about the connection.
VARIANT server_name(const Recording& recording) {
    VARIANT texts = recording.connection();
    VARIANT name = nothing();
    LONG last = 0;
    if (texts.vt == (VT_ARRAY | VT_VARIANT) && SUCCEEDED(SafeArrayGetUBound(texts.parray, 1, &last)))
        SafeArrayGetElement(texts.parray, &last, &name);
    VariantClear(&texts);
    return name;
}

/// The statement as the recording's own database writes it: '…' for each {ts '…'}.
std::wstring with_recorded_dates(std::wstring sql) {
    constexpr std::wstring_view begin = L"{ts '", end = L"'}";
    std::size_t at = 0;
    while ((at = sql.find(begin, at)) != std::wstring::npos) {
        const std::size_t close = sql.find(end, at);
        if (close == std::wstring::npos) break;
        sql.erase(close + 1, 1);
        sql.erase(at, begin.size() - 1);
    }
    return sql;
}

}  // namespace

std::span<const Connection::Member> Connection::members() {
    static const auto table = std::to_array<Member>({
        {L"Open",
         [](Connection& connection, const DISPPARAMS& arguments) {
             connection.recording_ = std::make_unique<Recording>(text_at(arguments, 0));
             return nothing();
         }},
        {L"Execute", [](Connection& connection,
                        const DISPPARAMS& arguments) { return connection.execute(text_at(arguments, 0)); }},
    });
    return table;
}

/// As whatever the statement was recorded: rows, a value, or without an answer.
VARIANT Connection::execute(const std::wstring& statement) const {
    if (!recording_) throw ScriptError{E_UNEXPECTED, L"ADODB.Connection", L"the connection is closed"};
    const std::wstring sql = with_recorded_dates(statement);
    // The one question that a recording answers otherwise than by its text.
    if (sql == L"SELECT @@SERVERNAME") return object_variant(new Recordset(server_name(*recording_)));
    VARIANT answer = nothing();
    try {
        answer = recording_->rows(sql);
    } catch (const ScriptError&) {
        try {
            answer = recording_->value(sql);
        } catch (const ScriptError&) {
            recording_->execute(sql);
        }
    }
    return object_variant(new Recordset(answer));
}

std::span<const Recordset::Member> Recordset::members() {
    static const auto table = std::to_array<Member>({
        {L"EOF",
         [](Recordset& rows, const DISPPARAMS&) {
             VARIANT end = nothing();
             end.vt = VT_BOOL;
             end.boolVal = rows.at_end() ? VARIANT_TRUE : VARIANT_FALSE;
             return end;
         }},
        {L"Fields",
         [](Recordset& rows, const DISPPARAMS&) { return object_variant(new Field(rows.answer_)); }},
        {L"GetRows", [](Recordset& rows, const DISPPARAMS&) { return copy_of(rows.answer_); }},
        {L"Close", [](Recordset&, const DISPPARAMS&) { return nothing(); }},
    });
    return table;
}

}  // namespace prottest
