#pragma once

#include <span>
#include <string>

#include "tests/com/component/script_object.h"

namespace prottest {

/// Appends a line to the file that the environment variable PROTTEST_REPORT names, as UTF-8; CR and LF within
/// the line as \r and \n. Without the variable: ScriptError.
void report(const std::wstring& line);

/// What a script has to say, as scripts have no way of their own to write every letter: Say(text).
class Report : public ScriptObject<Report> {
public:
    static std::span<const Member> members();
};

/// Stands in for the suite's problem report: ZQ_gShowError(number, source, description), all by reference.
class ErrorDisplay : public ScriptObject<ErrorDisplay> {
public:
    static std::span<const Member> members();
};

/// Stands in for the suite's help viewer: gShowHelp(file, id, result).
class HelpDisplay : public ScriptObject<HelpDisplay> {
public:
    static std::span<const Member> members();
};

}  // namespace prottest
