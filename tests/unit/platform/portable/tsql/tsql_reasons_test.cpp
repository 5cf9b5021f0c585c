#include <gtest/gtest.h>

#include <string>

#include "platform/automation/error.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {
namespace {

struct Row {
    const char* sql;
    const char* place;
    const char* reason;
};

std::string refusal(const std::string& sql) {
    try {
        translate_tsql(sql);
    } catch (const AutomationError& error) {
        return error.description();
    }
    return "no error";
}

/// Each sentence that a person may read, and the place that it is about.
const Row rows[] = {
    {"SELECT (a", "Spalte 8, bei „(“", "diese Klammer wird nicht geschlossen"},
    {"SELECT a)", "Spalte 9, bei „)“", "zu dieser Klammer fehlt die öffnende"},
    {"SELECT a /* x", "Spalte 10, bei „/*“", "dieser Kommentar hat kein Ende"},
    {"SELECT 'x", "Spalte 8, bei „'x“", "dieser Text hat kein Ende"},
    {"SELECT N'x", "Spalte 8, bei „N'x“", "dieser Text hat kein Ende"},
    {"SELECT [x", "Spalte 8, bei „[x“", "dieser Name hat kein Ende"},
    {"SELECT []", "Spalte 8, bei „[]“", "dieser Name ist leer"},
    {"SELECT 1x", "Spalte 8, bei „1x“", "diese Zahl ist nicht lesbar"},
    {"SELECT @x", "Spalte 8, bei „@“", "Variablen werden nicht unterstützt"},
    {"SELECT ?", "Spalte 8, bei „?“", "dieses Zeichen gehört nicht in eine Anweisung"},
    {"UPDATE T", "Spalte 1, bei „UPDATE“", "hier fehlt SELECT, DELETE oder DROP TABLE"},
    {"SELECT a FROM T SET", "Spalte 17, bei „SET“", "das wird hier nicht erwartet"},
    {"DROP VIEW v", "Spalte 6, bei „VIEW“", "hier fehlt TABLE"},
    {"DROP TABLE IF #t", "Spalte 15, bei „#t“", "hier fehlt EXISTS"},
    {"DROP TABLE", "Spalte 11, am Ende", "hier fehlt der Name einer temporären Tabelle (#…)"},
    {"DROP TABLE T", "Spalte 12, bei „T“", "das ist nur mit einer temporären Tabelle (#…) erlaubt"},
    {"DROP TABLE ##t", "Spalte 12, bei „##t“", "globale temporäre Tabellen werden nicht unterstützt"},
    {"SELECT (a = 1)", "Spalte 8, bei „(“", "hier wird ein Wert erwartet, keine Bedingung"},
    {"SELECT a FROM T WHERE a", "Spalte 24, am Ende", "hier fehlt ein Vergleich"},
    {"SELECT a FROM T WHERE a IS 1", "Spalte 28, bei „1“", "hier fehlt NULL"},
    {"SELECT a FROM T WHERE a NOT = 1", "Spalte 29, bei „=“", "hier fehlt IN, LIKE oder BETWEEN"},
    {"SELECT a FROM T WHERE a BETWEEN 1 OR 2", "Spalte 35, bei „OR“", "hier fehlt AND"},
    {"SELECT a FROM T WHERE a IN U", "Spalte 28, bei „U“", "hier fehlt eine Klammer"},
    {"SELECT a FROM T WHERE a IN (1 2)", "Spalte 31, bei „2“", "hier fehlt die schließende Klammer"},
    {"SELECT a FROM T WHERE a LIKE b", "Spalte 30, bei „b“", "hier fehlt ein Muster in Anführungszeichen"},
    {"SELECT a FROM T WHERE a LIKE '[x]'", "Spalte 30, bei „'[x]'“",
     "Zeichenmengen [ ] in LIKE werden nicht unterstützt"},
    {"SELECT a + 1", "Spalte 10, bei „+“", "Rechenzeichen werden nicht unterstützt"},
    {"SELECT a FROM T WHERE EXISTS (1)", "Spalte 30, bei „(“", "hier fehlt eine Klammer mit SELECT"},
    {"SELECT - a", "Spalte 10, bei „a“", "hier fehlt eine Zahl"},
    {"SELECT 1e999", "Spalte 8, bei „1e999“", "diese Zahl ist zu groß oder zu klein"},
    {"SELECT FROM T", "Spalte 8, bei „FROM“", "hier fehlt ein Wert"},
    {"SELECT a.1", "Spalte 9, bei „.1“", "das wird hier nicht erwartet"},
    {"SELECT a.b, a.FROM T", "Spalte 15, bei „FROM“", "hier fehlt ein Spaltenname"},
    {"SELECT a.b.c", "Spalte 11, bei „.“", "Spalten werden ohne Schema genannt"},
    {"SELECT a.f(1)", "Spalte 11, bei „(“", "diese Funktion wird nicht unterstützt"},
    {"SELECT ABS(1)", "Spalte 8, bei „ABS“", "diese Funktion wird nicht unterstützt"},
    {"SELECT a FROM T WHERE a IN (SELECT b FROM U ORDER BY b)", "Spalte 45, bei „ORDER“",
     "in einer Unterabfrage steht ORDER BY nur zusammen mit TOP"},
    {"SELECT a FROM T WHERE a IN ((SELECT b FROM U) ORDER BY b)", "Spalte 47, bei „ORDER“",
     "in einer Unterabfrage steht ORDER BY nur zusammen mit TOP"},
    {"SELECT a FROM T UNION SELECT a FROM U INTERSECT SELECT a FROM V", "Spalte 39, bei „INTERSECT“",
     "INTERSECT hinter UNION oder EXCEPT braucht Klammern"},
    {"SELECT a FROM T EXCEPT SELECT a FROM U INTERSECT SELECT a FROM V", "Spalte 40, bei „INTERSECT“",
     "INTERSECT hinter UNION oder EXCEPT braucht Klammern"},
    {"SELECT TOP a FROM T", "Spalte 12, bei „a“", "hier fehlt eine ganze Zahl für TOP"},
    {"SELECT a FROM T WHERE a IN (SELECT a INTO #t FROM U)", "Spalte 38, bei „INTO“",
     "INTO steht nur im ersten SELECT einer Anweisung"},
    {"SELECT COUNT(*), a INTO #t FROM U", "Spalte 20, bei „INTO“",
     "vor INTO braucht jede Spalte einen Namen"},
    {"SELECT a, COUNT(*) INTO #t FROM U", "Spalte 20, bei „INTO“",
     "vor INTO braucht jede Spalte einen Namen"},
    {"SELECT a FROM T GROUP a", "Spalte 23, bei „a“", "hier fehlt BY"},
    {"SELECT a FROM T ORDER a", "Spalte 23, bei „a“", "hier fehlt BY"},
    {"SELECT a FROM T ORDER BY 'x'", "Spalte 26, bei „'x'“", "hier fehlt eine Spalte für ORDER BY"},
    {"SELECT a FROM (T)", "Spalte 17, bei „)“", "hier fehlt JOIN"},
    {"SELECT a FROM T CROSS APPLY f", "Spalte 23, bei „APPLY“", "hier fehlt JOIN"},
    {"SELECT a FROM T LEFT OUTER U", "Spalte 28, bei „U“", "hier fehlt JOIN"},
    {"SELECT a FROM T INNER U", "Spalte 23, bei „U“", "hier fehlt JOIN"},
    {"SELECT a FROM T JOIN U", "Spalte 23, am Ende", "hier fehlt ON"},
    {"SELECT a FROM (SELECT a FROM T)", "Spalte 32, am Ende", "hier fehlt ein Name für die Unterabfrage"},
    {"SELECT a FROM WHERE", "Spalte 15, bei „WHERE“", "hier fehlt ein Tabellenname"},
    {"SELECT a FROM dbo.T", "Spalte 18, bei „.“", "Tabellen werden ohne Schema genannt"},
    {"SELECT a FROM T(1)", "Spalte 16, bei „(“",
     "Tabellenfunktionen und Tabellenhinweise werden nicht unterstützt"},
    {"SELECT a AS FROM T", "Spalte 13, bei „FROM“", "hier fehlt ein Name hinter AS"},
};

TEST(TsqlReasons, SayWhatIsWrongAndWhere) {
    for (const auto& [sql, place, reason] : rows)
        EXPECT_EQ(refusal(sql), std::string("Die Anweisung wird nicht verstanden (Zeile 1, ") + place +
                                    "): " + reason + ". Anweisung: " + sql);
}

TEST(TsqlReasons, CountParenthesesInsideOneAnother) {
    const auto nested = [](std::size_t depth) {
        return "SELECT a FROM T WHERE " + std::string(depth, '(') + "a = 1" + std::string(depth, ')');
    };
    EXPECT_EQ(refusal(nested(99)), "no error");
    EXPECT_EQ(refusal(nested(100)).substr(0, 94),
              "Die Anweisung wird nicht verstanden (Zeile 1, Spalte 122, bei „(“): zu tief geschachtelt. ");
    std::string beside = "SELECT a FROM T WHERE (a = 1)";
    for (int i = 0; i < 200; ++i) beside += " AND (a = 1)";
    EXPECT_EQ(refusal(beside), "no error") << "beside one another they may be many";
}

}  // namespace
}  // namespace prot
