#include "tests/com/component/report.h"

#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace prottest {

namespace {

VARIANT nothing() {
    VARIANT variant;
    VariantInit(&variant);
    return variant;
}

std::string utf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

/// The argument at `place`, which must refer to a variable of `type`.
const VARIANT& reference_at(const DISPPARAMS& parameters, UINT place, VARTYPE type) {
    const VARIANT& variant = argument_at(parameters, place);
    if (variant.vt != (VT_BYREF | type))
        throw ScriptError{DISP_E_TYPEMISMATCH, L"prottest", L"an argument is not by reference"};
    return variant;
}

std::wstring text_by_reference(const DISPPARAMS& parameters, UINT place) {
    const BSTR text = *reference_at(parameters, place, VT_BSTR).pbstrVal;
    return {text ? text : L"", SysStringLen(text)};
}

}  // namespace

void report(const std::wstring& line) {
    wchar_t path[MAX_PATH] = {};
    if (GetEnvironmentVariableW(L"PROTTEST_REPORT", path, MAX_PATH) == 0)
        throw ScriptError{E_UNEXPECTED, L"prottest", L"PROTTEST_REPORT is not set"};
    std::string escaped;
    for (const char letter : utf8(line))
        escaped += letter == '\r' ? "\\r" : letter == '\n' ? "\\n" : std::string(1, letter);
    std::ofstream(std::filesystem::path(path), std::ios::binary | std::ios::app) << escaped << '\n';
}

std::span<const Report::Member> Report::members() {
    static const auto table = std::to_array<Member>({{L"Say", [](Report&, const DISPPARAMS& arguments) {
                                                          report(text_at(arguments, 0));
                                                          return nothing();
                                                      }}});
    return table;
}

std::span<const ErrorDisplay::Member> ErrorDisplay::members() {
    static const auto table = std::to_array<Member>(
        {{L"ZQ_gShowError", [](ErrorDisplay&, const DISPPARAMS& arguments) {
              report(L"problem report " + std::to_wstring(*reference_at(arguments, 0, VT_I4).plVal) + L" | " +
                     text_by_reference(arguments, 1) + L" | " + text_by_reference(arguments, 2));
              return nothing();
          }}});
    return table;
}

std::span<const HelpDisplay::Member> HelpDisplay::members() {
    static const auto table =
        std::to_array<Member>({{L"gShowHelp", [](HelpDisplay&, const DISPPARAMS& arguments) {
                                    argument_at(arguments, 2);  // the result, which stays as it is
                                    report(L"help " + text_at(arguments, 0) + L" | " + text_at(arguments, 1));
                                    return nothing();
                                }}});
    return table;
}

}  // namespace prottest
