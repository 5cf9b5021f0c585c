#include "apps/protcsv/sample/sample_client_names.h"

namespace prot::sample {
namespace {

// clang-format off
// Numbers and names that begin alike, spellings of one name, characters that a CSV file has to quote.
constexpr KnownClient all_known[] = {
    {123,   "Bäckerei Öztürk",        "Bäckerei Öztürk GmbH & Co. KG",            Years::planned},
    {1001,  "Müller & Söhne",         "Müller & Söhne Metallbau OHG",             Years::group},
    {10,    "Mühlbauer",              "Mühlbauer Landtechnik KG",                 Years::summer},
    {7,     "Zöllner Zimmerei",       "Zimmerei Zöllner",                         Years::calendar},
    {7,     "Steuerbüro Süd",         "Steuerbüro Süd, Zweigstelle Löwenstein",   Years::calendar, true},
    {1002,  "Müller, Anna",           "Dr. Anna Müller, Zahnärztin",              Years::founded_2023},
    {100,   "Müller",                 "Müller Reisen"},
    {1003,  "Mueller",                "Mueller Handels GmbH"},
    {101,   "Muster",                 "Muster AG"},
    {102,   "Mustermann",             "Max Mustermann Immobilien"},
    {1,     "Ärztehaus am Markt",     "Ärztehaus am Markt GbR",                   Years::calendar},
    {11,    "Ahlers",                 "Ahlers Elektro GmbH"},
    {12,    "Straßenbau Weiß",        "Straßenbau Weiß GmbH"},
    {121,   "Strassenbau Weiss",      "Strassenbau Weiss AG"},
    {1231,  "Gasthof \"Zur Post\"; Groß", "Gasthof \"Zur Post\"; Inhaber Groß",   Years::summer},
    {1232,  "Übersetzungen Ünal",     "Übersetzungsbüro Ünal",                    Years::planned},
    {900,   "Altbau Schäfer",         "Altbau Schäfer i. L.",                     Years::calendar, false, true},
    {901,   "Neugründung Krüger",     "Krüger Photovoltaik UG",                   Years::none},
    {1,     "Kanzlei Löwenstein",     "Kanzlei Dr. Löwenstein und Partner",       Years::planned, true},
    {12,    "Steuerbüro Nord",        "Steuerbüro Nord, Zweigstelle Weiß",        Years::calendar, true},
};

constexpr std::string_view all_trades[] = {
    "Autohaus", "Apotheke", "Blumen", "Buchhandlung", "Dachdeckerei", "Elektro", "Fahrschule", "Gärtnerei", "Glaserei",
    "Hofladen", "Hörgeräte", "Küchen", "Malerbetrieb", "Maschinenbau", "Möbelhaus", "Optik", "Praxis", "Sanitär",
    "Spedition", "Tischlerei", "Weingut",
};
constexpr std::string_view all_families[] = {
    "Albrecht", "Bauer", "Becker", "Böhm", "Brandt", "Çelik", "Dörfler", "Eckert", "Fröhlich", "Fuchs", "Göbel",
    "Günther", "Haas", "Hübner", "Jäger", "Jansen", "Kaiser", "Köhler", "König", "Kowalski", "Krämer", "Lange", "Lehmann",
    "Löffler", "Maier", "Mayer", "Meier", "Meyer", "Möller", "Moeller", "Nowak", "Peters", "Pfeiffer", "Röder", "Sauer",
    "Schäfer", "Schmid", "Schmidt", "Schmitt", "Schröder", "Schulz", "Schütz", "Seidel", "Vogt", "Wagner", "Weiß",
    "Winkler", "Yıldız", "Zimmermann",
};
constexpr std::string_view all_forms[] = {"GmbH", "KG", "OHG", "e. K.", "GmbH & Co. KG", "AG", "GbR", "UG"};
// clang-format on

}  // namespace

std::span<const KnownClient> known_clients() { return all_known; }
std::span<const std::string_view> trades() { return all_trades; }
std::span<const std::string_view> families() { return all_families; }
std::span<const std::string_view> company_forms() { return all_forms; }

}  // namespace prot::sample
