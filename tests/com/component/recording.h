#pragma once

#include <oaidl.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/com/component/script_object.h"

namespace prottest {

/// A recorded run, as a database object answers from it (recording_sections.h says what lies in the file).
class Recording {
public:
    /// ScriptError when the file cannot be read or holds no recording.
    explicit Recording(const std::wstring& path);

    /// Each answers as recorded, a failure included. An unknown statement: ScriptError, which holds the
    /// statement.
    VARIANT value(const std::wstring& sql) const;
    VARIANT rows(const std::wstring& sql) const;
    void execute(const std::wstring& sql) const;
    std::wstring date_literal(DATE date) const;
    std::wstring like_wildcard() const { return wildcard_; }
    /// Ten texts.
    VARIANT connection() const;

private:
    using Fields = std::vector<std::wstring>;  // of a record, the first is its kind

    void add(const Fields& record);
    void require(bool known, const std::wstring& sql) const;

    std::map<std::wstring, std::wstring> values_;         // statement, cell
    std::map<std::wstring, std::vector<Fields>> arrays_;  // statement, its record and the records of its rows
    std::map<std::wstring, Fields> failures_;             // statement, record
    std::map<std::wstring, std::wstring> date_literals_;  // date as recorded, literal
    std::set<std::wstring> executed_;
    std::wstring wildcard_;
    std::wstring server_;
    std::vector<Fields>* open_array_ = nullptr;  // where the records of rows belong
};

}  // namespace prottest
