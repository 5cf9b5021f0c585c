#pragma once

#include <optional>
#include <string_view>

#include "apps/protcsv/console/interruption.h"
#include "platform/forwarding_database.h"

namespace prot {

/// A database object whose deletions run to their end when the program is to be stopped: one that is cut off
/// leaves a journal that has to be rolled back before anyone can read the database. A batch that fills
/// temporary tables may be cut off; nobody else sees them.
class WholeStatements : public ForwardingDatabase {
public:
    using ForwardingDatabase::ForwardingDatabase;

    void execute(std::string_view sql) override {
        std::optional<InterruptionsWait> wait;
        if (sql.find("DELETE") != std::string_view::npos) wait.emplace();
        ForwardingDatabase::execute(sql);
    }
};

}  // namespace prot
