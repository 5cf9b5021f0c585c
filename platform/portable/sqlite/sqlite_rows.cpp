#include "platform/portable/sqlite/sqlite_rows.h"

namespace prot {

void SqliteRows::read(RowSet& batch, std::size_t rows) {
    if (!run_ && !at_end_) run_.emplace(connection_, statement_.get(), query_.parameters, query_.source);
    for (; rows > 0 && !at_end_; --rows) {
        if (!run_->next_row()) {
            at_end_ = true;
            run_.reset();
            return;
        }
        if (!cells_) cells_.emplace(statement_.get());
        if (batch.columns() == 0) batch = RowSet(cells_->columns());
        cells_->append_row(batch);
    }
}

void SqliteRows::restart() {
    run_.reset();
    cells_.reset();
    at_end_ = false;
}

}  // namespace prot
