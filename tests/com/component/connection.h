#pragma once

#include <memory>
#include <span>
#include <string>

#include "tests/com/component/recording.h"
#include "tests/com/component/script_object.h"

namespace prottest {

/// Stands in for ADODB.Connection, so that the examples run as they are: Open takes the path of a recording
/// for a connection string, Execute answers from it.
class Connection : public ScriptObject<Connection> {
public:
    static std::span<const Member> members();

private:
    VARIANT execute(const std::wstring& statement) const;

    std::unique_ptr<Recording> recording_;
};

/// Stands in for ADODB.Recordset: EOF, Fields(0) or Fields.Item(0) with its Value, GetRows, Close.
class Recordset : public ScriptObject<Recordset> {
public:
    /// answer: an array (column, row), or the only value; Empty or Null: no row. Takes it over.
    explicit Recordset(VARIANT answer) : answer_(answer) {}
    ~Recordset() override { VariantClear(&answer_); }

    static std::span<const Member> members();

private:
    bool at_end() const { return answer_.vt == VT_EMPTY || answer_.vt == VT_NULL; }

    VARIANT answer_;
};

}  // namespace prottest
