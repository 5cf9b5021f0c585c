#include "apps/protcsv/sample/sample_framework_story.h"
#include "apps/protcsv/sample/sample_framework_tables.h"

namespace prot::sample {
namespace {

// clang-format off
constexpr Everyday<FrameworkDesk> everyday[] = {
    {5,  &FrameworkDesk::touch_any},
    {16, &FrameworkDesk::rename_position},
    {6,  &FrameworkDesk::renumber_position},
    {8,  &FrameworkDesk::annotate_position},
    {4,  &FrameworkDesk::add_any_position},
    {3,  &FrameworkDesk::remove_any_position},
    {30, &FrameworkDesk::reassign},
    {9,  &FrameworkDesk::change_cell},
    {6,  &FrameworkDesk::change_line_kind},
    {5,  &FrameworkDesk::change_column},
    {5,  &FrameworkDesk::change_format},
    {3,  &FrameworkDesk::change_framework},
};
// clang-format on
static_assert(are_all<FrameworkDesk>(everyday));

constexpr Programs programs = {
    "Auswertungsdesigner",
    {"_UNBEKANNT_Rahmenabgleich", "svc_rahmen", 0, "SRV-JOBS", "Rahmenabgleich"},
};

class ReportFrameworks : public StorySection<FrameworkDesk> {
public:
    ReportFrameworks(Random random, std::int64_t rows)
        : StorySection(
              {random, rows},
              {.story = framework_story(), .everyday = everyday, .programs = programs, .in_turn = true}),
          captions_(framework_captions()) {}

    void write_master_data(SqliteFile& file) const override { write_frameworks(file, desk()); }
    std::span<const Caption> captions() const override { return captions_; }

private:
    std::vector<Caption> captions_;
};

}  // namespace

std::unique_ptr<Section> create_report_frameworks(Random random, std::int64_t rows, ClientBook& /*clients*/) {
    return std::make_unique<ReportFrameworks>(random, rows);
}

}  // namespace prot::sample
