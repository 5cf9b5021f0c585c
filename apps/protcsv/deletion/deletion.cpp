#include "apps/protcsv/deletion/deletion.h"

#include <utility>

#include "platform/automation/text_forms.h"

namespace prot {

namespace {

AutomationError differs(std::string_view what) {
    return {ErrorNumber::internal,
            "Es wurde nichts gelöscht: " + std::string(what) +
                " Bitte noch einmal löschen, wenn sonst niemand das Protokoll ändert."};
}

}  // namespace

Deletion::~Deletion() { undo(); }

Value Deletion::query_value(std::string_view sql) {
    const Value value = ForwardingDatabase::query_value(sql);
    if (SelectedRecords::is_counting(sql)) {
        counted_ = SelectedRecords::counted_by(sql);
        records_found_ = static_cast<std::int64_t>(val(to_text(value)));
    }
    return value;
}

Deleted Deletion::found() { return {records_found_, counted_ ? counted_->memos(statements_) : 0}; }

void Deletion::execute(std::string_view sql) {
    if (!SelectedRecords::is_deleting(sql)) return ForwardingDatabase::execute(sql);
    try {
        if (!going_) begin(sql);
        run(sql);
    } catch (...) {
        undo();
        throw;
    }
}

void Deletion::begin(std::string_view sql) {
    going_ = SelectedRecords::deleted_by(sql);
    if (archive_ == nullptr) return;
    keeps_ = true;
    archive_->keep(*going_);
    wait_.emplace();
    database_.begin_transaction();
    in_transaction_ = true;
    if (going_->ids(statements_) != archive_->ids())
        throw differs("Seit das Archiv geschrieben wurde, haben sich die ausgewählten Sätze geändert.");
}

void Deletion::run(std::string_view sql) {
    const bool records = going_->are_deleted_by(sql);
    ForwardingDatabase::execute(sql);
    (records ? so_far_.records : so_far_.memos) += database_.deleted_rows();
    if (archive_ == nullptr)
        deleted_ = so_far_;
    else if (records)
        finish();
    is_complete_ = records;
}

void Deletion::finish() {
    if (so_far_.records != static_cast<std::int64_t>(archive_->ids().size()) ||
        so_far_.memos != archive_->memos())
        throw differs("Gelöscht würden andere Sätze, als im Archiv stehen.");
    in_transaction_ = false;  // whatever becomes of the commit
    try {
        database_.commit();
    } catch (const UnknownOutcome&) {
        keeps_ = false;
        archive_->outcome_is_unknown();
        throw;
    }
    deleted_ = so_far_;
    keeps_ = false;
    archive_->records_went(so_far_);
    wait_.reset();
}

void Deletion::undo() noexcept {
    if (std::exchange(in_transaction_, false)) database_.rollback();
    if (std::exchange(keeps_, false)) archive_->nothing_went();
    wait_.reset();
}

}  // namespace prot
