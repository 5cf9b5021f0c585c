#include "sections/report_frameworks/framework_values.h"

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

namespace {

struct TranslationObject {
    std::string_view table, program_id;
};
constexpr std::array<TranslationObject, 6> translation_objects = {{
    {"AUSWERTUNGSPOSITION", "srvKWAusw.KWAuswPositionBrowsClass"},
    {"ZEILENART", "srvKWAusw.KWAuswZeilenartClass"},
    {"SPALTENFORMATE", "srvKWAusw.KWAuswSpfLstClass"},
    {"AUSWERTUNGSSPALTE", "srvKWAusw.KWAuswSpalteLstClass"},
    {"AUSWERTUNGSZELLE", "srvKWAusw.KWAuswZelleListClass"},
    {"FORMEL_POSITION", "srvKWAusw.KWAuswFormelLstClass"},
}};

}  // namespace

std::string FrameworkValues::msTranslateValue(std::string_view sTabelle, std::string_view sSpalte,
                                              std::int32_t lWert, Date dtDatum) try {
    for (std::size_t i = 0; i < translation_objects.size(); ++i) {
        if (!upper_equals(sTabelle, translation_objects[i].table)) continue;
        Known& known = known_[i];
        if (!known.tried) {
            known.tried = true;
            known.translator =
                run_.environment.components.create_value_translator(translation_objects[i].program_id);
        }
        return known.translator ? known.translator->translate(lWert, sSpalte, dtDatum) : std::string();
    }
    return {};
} catch (...) {
    leave(owner, "msTranslateValue");
}

}  // namespace prot::report_frameworks
