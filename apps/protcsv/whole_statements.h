#pragma once

#include "apps/protcsv/console/interruption.h"
#include "platform/forwarding_database.h"

namespace prot {

/// A database object whose changing statements run to their end when the program is to be stopped: a deletion
/// that is cut off leaves a journal that has to be rolled back before anyone can read the database.
class WholeStatements : public ForwardingDatabase {
public:
    using ForwardingDatabase::ForwardingDatabase;

    void execute(std::string_view sql) override {
        const InterruptionsWait wait;
        ForwardingDatabase::execute(sql);
    }
};

}  // namespace prot
