#include "apps/protcsv/sample/sample_partner_story.h"
#include "apps/protcsv/sample/sample_partner_tables.h"

namespace prot::sample {
namespace {

// clang-format off
constexpr Everyday<PartnerDesk> everyday[] = {
    {4,  &PartnerDesk::add_any},
    {2,  &PartnerDesk::dissolve_any},
    {11, &PartnerDesk::touch_any},
    {26, &PartnerDesk::change_conditions},
    {14, &PartnerDesk::assign},
    {12, &PartnerDesk::move_any},
    {4,  &PartnerDesk::rename_any},
    {12, &PartnerDesk::change_account},
    {6,  &PartnerDesk::change_extra},
    {3,  &PartnerDesk::change_accounts},
    {5,  &PartnerDesk::change_purposes},
    {1,  &PartnerDesk::change_terms},
};
// clang-format on
static_assert(are_all<PartnerDesk>(everyday));

constexpr BothSides application = {"Kundenverwaltung", "Lieferantenverwaltung"};

class Partners : public StorySection<PartnerDesk> {
public:
    Partners(Side side, Random random, std::int64_t rows, ClientBook& clients)
        : StorySection(
              {side, random, rows, clients},
              {.story = partner_story(),
               .everyday = everyday,
               .programs = {of_side(application, side),
                            {"_UNBEKANNT_Stammdaten", "svc_abgleich", 0, "SRV-JOBS", "Stammdatenabgleich"}},
               .in_turn = true}),
          side_(side),
          captions_(partner_captions(side)) {}

    void write_master_data(SqliteFile& file) const override { write_partners(file, side_, desk()); }
    std::span<const Caption> captions() const override { return captions_; }

private:
    Side side_;
    std::vector<Caption> captions_;
};

}  // namespace

std::unique_ptr<Section> create_customers(Random random, std::int64_t rows, ClientBook& clients) {
    return std::make_unique<Partners>(Side::customers, random, rows, clients);
}

std::unique_ptr<Section> create_suppliers(Random random, std::int64_t rows, ClientBook& clients) {
    return std::make_unique<Partners>(Side::suppliers, random, rows, clients);
}

}  // namespace prot::sample
