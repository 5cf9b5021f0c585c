#include <string>

#include "tests/faults/hostile_documents/document_run.h"

/// Well-formed documents that are not built as a change document should be.
namespace prot::faults {
namespace {

using Documents = DocumentRun;

std::string column(const std::string& old_value, const std::string& new_value) {
    return "<Col Name=\"dzKursEURGeld\"><OldValue>" + old_value + "</OldValue><NewValue>" + new_value +
           "</NewValue></Col>";
}

TEST_F(Documents, ValuesAreFoundByNameWhereverTheyStand) {
    const DocumentCase cases[] = {
        {"the new value first",
         "<Cols><Col Name=\"dzKursEURGeld\"><NewValue>2</NewValue><OldValue>1</OldValue></Col></Cols>",
         {{{"1", "2"}}}},
        {"other elements between",
         "<Cols><x/><Col Name=\"dzKursEURGeld\"><a/>t<OldValue>1</OldValue><b>z</b><NewValue>2</NewValue>"
         "</Col><y/></Cols>",
         {{{"1", "2"}}}},
        {"other attributes too",
         "<Cols a=\"1\"><Col b=\"2\" Name=\"dzKursEURGeld\" c=\"3\"/></Cols>",
         {{{"", ""}}}},
        {"the first of two old values counts",
         "<Cols><Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue><OldValue>9</OldValue></Col></Cols>",
         {{{"1", ""}}}},
        {"without a new value",
         "<Cols><Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue></Col></Cols>",
         {{{"1", ""}}}},
        {"without any value", "<Cols><Col Name=\"dzKursEURGeld\"/></Cols>", {{{"", ""}}}},
        {"the text of elements inside a value belongs to it",
         "<Cols>" + column("a<b>c<d/>e</b>f", "2") + "</Cols>",
         {{{"acef", "2"}}}},
        {"Cols below another root", "<r><s/><Cols>" + column("1", "2") + "</Cols></r>", {{{"1", "2"}}}},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

TEST_F(Documents, TheFirstElementColsIsTheDocument) {
    const DocumentCase cases[] = {
        {"of two, the first",
         "<r><Cols>" + column("1", "2") + "</Cols><Cols>" + column("3", "4") + "</Cols></r>",
         {{{"1", "2"}}}},
        {"an empty one first", "<r><Cols/><Cols>" + column("3", "4") + "</Cols></r>", {{}}},
        {"one inside the other",
         "<Cols>" + column("1", "2") + "<Cols>" + column("3", "4") + "</Cols></Cols>",
         {{{"1", "2"}}}},
        {"a column inside a column",
         "<Cols><Col Name=\"dzKursEURGeld\"><OldValue>1</OldValue>" + column("3", "4") + "</Col></Cols>",
         {{{"1", ""}}}},
        {"columns below another element", "<Cols><x>" + column("1", "2") + "</x></Cols>", {{}}},
        {"no Cols at all", "<r>" + column("1", "2") + "</r>", {{}}},
        {"names are compared with their letter case", "<cols>" + column("1", "2") + "</cols>", {{}}},
        {"Cols without columns", "<Cols></Cols>", {{}}},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

TEST_F(Documents, ColumnsOfTheSameNameGiveALineEach) {
    check({"the log may repeat a column",
           "<Cols>" + column("1", "2") + column("3", "4") + "</Cols>",
           {{{"1", "2"}, {"3", "4"}}}});
}

TEST_F(Documents, ValuesOfBlanksAndNullsStayWhatTheyAre) {
    const DocumentCase cases[] = {
        {"blanks are a value", "<Cols>" + column("   ", "\t") + "</Cols>", {{{"   ", "'\t"}}}},
        {"a line break is a value; CR LF reads as LF",
         "<Cols>" + column("\r\n", "&#13;") + "</Cols>",
         {{{"\"\n\"", "\"'\r\""}}}},
        {"the word NULL reads as empty", "<Cols>" + column("NULL", "null") + "</Cols>", {{{"", "null"}}}},
        {"only as the whole value", "<Cols>" + column("NULL ", " NULL") + "</Cols>", {{{"NULL ", " NULL"}}}},
        {"formulas are disarmed, separators quoted",
         "<Cols>" + column("=1+1", "a;b") + "</Cols>",
         {{{"'=1+1", "\"a;b\""}}}},
    };
    for (const DocumentCase& expected : cases) check(expected);
}

TEST_F(Documents, AColumnWithoutANameIsAFieldWithoutCaption) {
    for (const std::string document : {"<Cols><Col><OldValue>1</OldValue></Col></Cols>",
                                       "<Cols><Col Name=\"\"/></Cols>", "<Cols><Col name=\"x\"/></Cols>"}) {
        log.put(2, document);
        WholeProgram program = exporting();
        ASSERT_EQ(program.run(section_table()), 0) << program.errors();
        EXPECT_EQ(notices(program.errors()), "1 Feld ohne Beschriftung blieb weg: TDEVISENKURS. (1)\n")
            << document;
        EXPECT_EQ(file(), file_head() + line_of(1, "Kurs EUR (Geld)", "0,93", "0,94") + "\r\n" +
                              line_of(3, "Kurs fremd", "5", "6") + "\r\n");
    }
}

TEST_F(Documents, AColumnNameWithAnApostropheCannotReachIntoTheStatement) {
    log.put(2, document_of("x' OR '1'='1", "1", "2"));
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0) << program.errors();
    EXPECT_EQ(log.number("SELECT COUNT(*) FROM tProtokoll"), 3);
    EXPECT_TRUE(file().ends_with(line_of(3, "Kurs fremd", "5", "6") + "\r\n"));
}

TEST_F(Documents, TheReportNamesEveryRecordThatDoesNotLoadAndNoOther) {
    std::string expected = file_head();
    for (int id = 1; id <= 12; ++id) {
        log.put(id, id % 3 == 0 ? "<Cols" : document_of("dzKursEURGeld", std::to_string(id), ""));
        if (id % 3 != 0) expected += line_of(id, "Kurs EUR (Geld)", std::to_string(id), "") + "\r\n";
    }
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0) << program.errors();
    EXPECT_EQ(file(), expected);
    EXPECT_EQ(notices(program.errors()), "4 Protokollsätze mit unlesbarem Änderungsdokument: 3, 6, 9, 12\n");
}

}  // namespace
}  // namespace prot::faults
