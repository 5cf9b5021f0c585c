#pragma once

#include <span>

#include "apps/protcsv/sample/sample_partner_desk.h"
#include "apps/protcsv/sample/sample_story.h"

namespace prot::sample {

/// The same for customers and suppliers: only who they are and what their lists hold differs.
std::span<const Step<PartnerDesk>> partner_story();

}  // namespace prot::sample
