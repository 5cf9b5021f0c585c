#include "tests/com/component/recording.h"

#include <cmath>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace prottest {

namespace {

constexpr wchar_t source[] = L"RecordedDatabase";
constexpr HRESULT unknown_statement = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 513);

std::wstring read_utf16le(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!bytes.starts_with("\xFF\xFE"))
        throw ScriptError{unknown_statement, source, L"no recording: " + path};
    std::wstring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
        text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                     static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
}

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator) {
    std::vector<std::wstring> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

std::wstring unescaped(const std::wstring& field) {
    std::wstring text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const bool escape = field[i] == L'\\' && i + 1 < field.size();
        if (escape) ++i;
        const wchar_t letter = field[i];
        text += !escape          ? letter
                : letter == L't' ? L'\t'
                : letter == L'r' ? L'\r'
                : letter == L'n' ? L'\n'
                                 : letter;
    }
    return text;
}

constexpr double seconds_per_day = 86400;

DATE date_of(const std::wstring& field) {
    const std::size_t colon = field.find(L':');
    const double days = std::wcstod(field.c_str(), nullptr);
    const double time = std::wcstod(field.c_str() + colon + 1, nullptr) / seconds_per_day;
    return days < 0 ? days - time : days + time;
}

std::wstring field_of(DATE date) {
    const double days = std::trunc(date);
    const double seconds = std::round(std::fabs(date - days) * seconds_per_day);
    return std::to_wstring(static_cast<long long>(days)) + L":" +
           std::to_wstring(static_cast<long long>(seconds));
}

/// The value of a cell: N, I12, R1.5, D46022:86399, Ttext.
VARIANT variant_of(const std::wstring& cell) {
    VARIANT variant;
    VariantInit(&variant);
    const std::wstring content = cell.substr(1);
    switch (cell[0]) {
        case L'I':  // as a script's own numbers: a Long where that suffices
            variant.vt = VT_I4;
            variant.lVal = static_cast<LONG>(std::wcstol(content.c_str(), nullptr, 10));
            if (std::to_wstring(variant.lVal) == content) return variant;
            [[fallthrough]];
        case L'R':
            variant.vt = VT_R8;
            variant.dblVal = std::wcstod(content.c_str(), nullptr);
            return variant;
        case L'D':
            variant.vt = VT_DATE;
            variant.date = date_of(content);
            return variant;
        case L'T':
            return text_variant(content);
        default:
            variant.vt = VT_NULL;
            return variant;
    }
}

VARIANT array_variant(SAFEARRAY* array) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_ARRAY | VT_VARIANT;
    variant.parray = array;
    return variant;
}

void put(SAFEARRAY* array, LONG* indices, VARIANT element) {
    SafeArrayPutElement(array, indices, &element);  // copies
    VariantClear(&element);
}

}  // namespace

Recording::Recording(const std::wstring& path) {
    for (const std::wstring& line : split(read_utf16le(path), L'\n')) {
        if (line.empty()) continue;
        Fields record;
        for (const std::wstring& field : split(line, L'\t')) record.push_back(unescaped(field));
        record.resize(std::max<std::size_t>(record.size(), 5));
        add(record);
    }
}

void Recording::add(const Fields& record) {
    const std::wstring& kind = record[0];
    if (kind == L"query_value") values_[record[1]] = record[2];
    if (kind == L"query_array") (open_array_ = &arrays_[record[1]])->assign(1, record);
    if (kind == L"row" && open_array_) open_array_->push_back(record);
    if (kind == L"failure") failures_[record[1]] = record;
    if (kind == L"execute") executed_.insert(record[1]);
    if (kind == L"date_literal") date_literals_[record[1]] = record[2];
    if (kind == L"like_wildcard") wildcard_ = record[1];
    if (kind == L"connection_info") server_ = record[1];
}

void Recording::require(bool known, const std::wstring& sql) const {
    if (const auto failure = failures_.find(sql); failure != failures_.end())
        throw ScriptError{static_cast<HRESULT>(std::wcstol(failure->second[2].c_str(), nullptr, 10)),
                          failure->second[3], failure->second[4]};
    if (!known) throw ScriptError{unknown_statement, source, L"unknown statement: " + sql};
}

VARIANT Recording::value(const std::wstring& sql) const {
    const auto found = values_.find(sql);
    require(found != values_.end(), sql);
    return variant_of(found->second);
}

VARIANT Recording::rows(const std::wstring& sql) const {
    const auto found = arrays_.find(sql);
    require(found != arrays_.end(), sql);
    const std::vector<Fields>& records = found->second;
    VARIANT empty;
    VariantInit(&empty);
    if (records.size() == 1) return empty;
    const ULONG columns = std::wcstoul(records[0][2].c_str(), nullptr, 10);
    SAFEARRAYBOUND bounds[] = {{columns, 0}, {static_cast<ULONG>(records.size() - 1), 0}};
    SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!array) throw std::bad_alloc();
    for (LONG row = 0; row < static_cast<LONG>(records.size()) - 1; ++row)
        for (LONG column = 0; column < static_cast<LONG>(columns); ++column) {
            LONG indices[] = {column, row};
            const Fields& record = records[static_cast<std::size_t>(row) + 1];
            put(array, indices, variant_of(record[static_cast<std::size_t>(column) + 1]));
        }
    return array_variant(array);
}

void Recording::execute(const std::wstring& sql) const { require(executed_.contains(sql), sql); }

std::wstring Recording::date_literal(DATE date) const {
    const auto found = date_literals_.find(field_of(date));
    require(found != date_literals_.end(), L"date " + field_of(date));
    return found->second;
}

VARIANT Recording::connection() const {
    constexpr LONG texts = 10;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, texts);
    if (!array) throw std::bad_alloc();
    for (LONG i = 0; i < texts; ++i) put(array, &i, text_variant(i + 1 == texts ? server_ : L""));
    return array_variant(array);
}

}  // namespace prottest
