#pragma once

#include <string_view>

namespace prot {

/// The platform's help viewer (class srvZQ.ZQHelpClass in the suite).
class HelpDisplay {
public:
    virtual ~HelpDisplay() = default;

    /// Shows topic `help_id` of the help map `map_file`. False when it could not be shown.
    virtual bool show_topic(std::string_view map_file, std::string_view help_id) = 0;
};

}  // namespace prot
