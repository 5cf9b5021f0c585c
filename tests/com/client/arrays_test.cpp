#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using Arrays = ServerTest;

constexpr HRESULT type_mismatch = static_cast<HRESULT>(0x800A000D);
constexpr HRESULT index_out_of_range = static_cast<HRESULT>(0x800A0009);

Variant array_variant(VARTYPE type, SAFEARRAY* array) {
    VARIANT raw = empty();
    raw.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    raw.parray = array;
    return Variant::adopt(raw);
}

/// An array of BSTR, as some hosts read whole tables.
Variant texts(const std::vector<std::vector<std::string>>& rows, FirstIndices first = {}) {
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows[0].size()), first.column},
                               {static_cast<ULONG>(rows.size()), first.row}};
    SAFEARRAY* const array = SafeArrayCreate(VT_BSTR, 2, bounds);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            const Bstr cell(rows[row][column]);
            LONG index[] = {first.column + static_cast<LONG>(column), first.row + static_cast<LONG>(row)};
            SafeArrayPutElement(array, index, cell.borrow());
        }
    return array_variant(VT_BSTR, array);
}

/// The sample's rows with one cell replaced by a variant of any type.
Variant sample_with(LONG column, LONG row, const VARIANT& cell) {
    Variant rows = array_of(sample_rows());
    LONG index[] = {column, row};
    SafeArrayPutElement(rows.borrow().parray, index, const_cast<VARIANT*>(&cell));
    return rows;
}

VARIANT of_type(VARTYPE type) {
    VARIANT raw = empty();
    raw.vt = type;
    return raw;
}

}  // namespace

TEST_F(Arrays, WholeTablesOfTextsCountAsTheirCells) {
    InterfaceDatabase database;
    database.answers.on(currencies_query, [] { return texts({{"1", "CHF"}, {"2", "USD"}}); });
    database.answers.on(main_query, [] {
        return texts({{"1", "TDEVISENKURS", "WS-01", "Müller", "01.01.2025", "0",
                       "<Cols><Col Name=\"dzKursEURGeld\"><OldValue/><NewValue>0,93</NewValue></Col></Cols>",
                       "sa", "Kurse", "10", "10", "1", "", ""}});
    });
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    EXPECT_NE(
        folder.only_file().find("CHF;Schweizer Franken;01.01.2025;01.01.2025;Müller;Kurs EUR (Geld);angelegt;"
                                ";0,93;WS-01;Kurse;Standardbenutzer\r\n"),
        std::string::npos)
        << folder.only_file();
}

TEST_F(Arrays, OtherLowerBoundsGiveTheSameFileAndTheirOwnProgress) {
    struct Row {
        FirstIndices first;
        std::vector<std::string> progress;
    };
    const Row rows[] = {
        {{1, 1}, {"gSetFortschritt 1/4", "gSetFortschritt 2/4", "gSetFortschritt 3/4"}},
        {{0, -5}, {"gSetFortschritt -5/-2", "gSetFortschritt -4/-2", "gSetFortschritt -3/-2"}},
        {{-5, 0}, {"gSetFortschritt 0/3", "gSetFortschritt 1/3", "gSetFortschritt 2/3"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.progress[0]);
        const OutputFolder own;
        NamedDatabase database;
        NamedProgress progress;
        database.answers.on(main_query, sample_rows(), row.first);
        database.answers.on(currencies_query,
                            {{std::int64_t{1}, std::string("CHF")}, {std::int64_t{2}, std::string("USD")}},
                            row.first);
        const auto exporter = entry();
        exporter->putref_poParent(&progress);
        EXPECT_EQ(export_by_function(*exporter.borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
        ASSERT_EQ(progress.calls.size(), 5U);
        EXPECT_EQ(std::vector<std::string>(progress.calls.begin() + 2, progress.calls.end()), row.progress);
        exporter->putref_poParent(nullptr);
    }
}

TEST_F(Arrays, ByReferenceCountAsByValue) {
    Variant rows = array_of(sample_rows());
    SAFEARRAY* array = rows.borrow().parray;
    VARIANT by_reference = of_type(VT_BYREF | VT_ARRAY | VT_VARIANT);
    by_reference.pparray = &array;
    VARIANT nested = reference(const_cast<VARIANT&>(rows.borrow()));
    for (const VARIANT& answer : {by_reference, nested}) {
        SCOPED_TRACE(answer.vt);
        const OutputFolder own;
        InterfaceDatabase database;
        database.answers.on(main_query, [&] { return Variant::adopt(answer); });
        EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
    }
}

TEST_F(Arrays, CellsOfEveryTypeThatHoldsTheSameNumberCountTheSame) {
    VARIANT decimal = of_type(VT_EMPTY);
    VarDecFromI4(2, &decimal.decVal);
    decimal.vt = VT_DECIMAL;
    VARIANT currency = of_type(VT_CY);
    currency.cyVal.int64 = 20000;
    VARIANT wide = of_type(VT_I8);
    wide.llVal = 2;
    VARIANT byte = of_type(VT_UI1);
    byte.bVal = 2;
    const Bstr two("2");
    for (const VARIANT& cell :
         {decimal, currency, wide, byte, number(2), real(2.0), short_number(2), text(two)}) {
        SCOPED_TRACE(cell.vt);
        const OutputFolder own;
        InterfaceDatabase database;
        database.answers.on(main_query,
                            [&] { return sample_with(11, 1, cell); });  // the second record's currency
        EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
    }
}

TEST_F(Arrays, CellsShowAsTheirTexts) {
    VARIANT currency = of_type(VT_CY);
    currency.cyVal.int64 = 12345;
    VARIANT single = of_type(VT_R4);
    single.fltVal = 0.1F;
    struct Row {
        VARIANT cell;
        const char* shown;
        const char* why;
    };
    const Row rows[] = {
        {currency, "1,2345", "Currency"},
        {single, "0,1", "Single"},
        {real(-1.5), "-1,5", "Double"},
        {boolean(true), "-1", "True"},
        {boolean(false), "0", "False"},
        {date(45658.5), "01.01.2025 12:00:00", "Date"},
        {null(), "", "Null"},
        {empty(), "", "Empty"},
        {number(-7), "-7", "Long"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const OutputFolder own;
        InterfaceDatabase database;
        database.answers.on(main_query, [&] { return sample_with(2, 0, row.cell); });  // the workstation
        EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
        EXPECT_NE(own.only_file().find(";;0,93;" + std::string(row.shown) + ";Kurse;Standardbenutzer\r\n"),
                  std::string::npos)
            << own.only_file();
    }
}

TEST_F(Arrays, ThatAreNoTableAreErrorsAndLeaveNoFile) {
    struct Row {
        const char* why;
        HRESULT error;
        std::function<Variant()> answer;
    };
    Table narrow = sample_rows();
    for (auto& row : narrow) row.resize(2);
    const Row rows[] = {
        {"too few columns", index_out_of_range, [&] { return array_of(narrow); }},
        {"one dimension", type_mismatch,
         [] { return array_variant(VT_VARIANT, SafeArrayCreateVector(VT_VARIANT, 0, 14)); }},
        {"three dimensions", type_mismatch,
         [] {
             SAFEARRAYBOUND bounds[] = {{14, 0}, {1, 0}, {1, 0}};
             return array_variant(VT_VARIANT, SafeArrayCreate(VT_VARIANT, 3, bounds));
         }},
        {"a number", type_mismatch, [] { return Variant::adopt(number(5)); }},
        {"a text", type_mismatch, [] { return variant_of(std::string("Zeilen")); }},
        {"an array of objects", type_mismatch,
         [] {
             SAFEARRAYBOUND bounds[] = {{14, 0}, {1, 0}};
             return array_variant(VT_DISPATCH, SafeArrayCreate(VT_DISPATCH, 2, bounds));
         }},
        {"an object in a cell", type_mismatch, [] { return sample_with(2, 0, object(nullptr)); }},
        {"an array in a cell", type_mismatch,
         [] { return sample_with(2, 0, array_of(sample_rows()).borrow()); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        InterfaceDatabase database;
        database.answers.on(main_query, row.answer);
        const Outcome seen = export_by_function(*entry().borrow(), &database);
        EXPECT_EQ(seen.result, row.error);
        EXPECT_FALSE(seen.description.empty());
        EXPECT_TRUE(folder.files().empty());
    }
}

TEST_F(Arrays, WithoutElementsAreNoRows) {
    InterfaceDatabase database;
    database.answers.on(main_query, [] {
        SAFEARRAYBOUND bounds[] = {{14, 0}, {0, 0}};
        return array_variant(VT_VARIANT, SafeArrayCreate(VT_VARIANT, 2, bounds));
    });
    EXPECT_EQ(export_by_function(*entry().borrow(), &database).result, S_OK);
    EXPECT_EQ(folder.only_file(), "\xEF\xBB\xBFKeine Daten vorhanden!\r\n\r\n\r\n\r\n");
}

}  // namespace prot::test
