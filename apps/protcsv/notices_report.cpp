#include "apps/protcsv/notices_report.h"

#include <algorithm>
#include <functional>

namespace prot {

namespace {

std::string and_more(std::size_t all) {
    return all > most_listed ? " und " + std::to_string(all - most_listed) + " weitere" : std::string();
}

LeftOut reason_of(NoLine why, bool lacks_caption) {
    switch (why) {
        case NoLine::unreadable_document:
            return LeftOut::unreadable_document;
        case NoLine::without_changes:
            return LeftOut::without_changes;
        case NoLine::without_moment:
            return LeftOut::without_moment;
        case NoLine::none:
        case NoLine::not_described:
            return LeftOut::not_described;
        case NoLine::no_field_exported:
            break;
    }
    return lacks_caption ? LeftOut::without_caption : LeftOut::not_exported;
}

}  // namespace

void NoticesReport::field_without_caption(std::string_view table, std::string_view column) {
    lacks_caption_ = true;
    const auto field = fields_.find(std::pair(table, column));
    if (field != fields_.end())
        ++field->second;
    else
        fields_.emplace(std::pair(std::string(table), std::string(column)), 1);
}

void NoticesReport::lookup_failed(std::string_view error) {
    if (failure_count_++ == 0) first_failure_ = error;
}

void NoticesReport::record_read(std::int64_t log_id, std::int64_t lines, NoLine why) {
    const bool lacks_caption = std::exchange(lacks_caption_, false);
    ++records_;
    if (ids_ != nullptr) ids_->push_back(log_id);
    lines_ += lines;
    if (lines > 0) return;
    CountedRecords& records = left_out_[static_cast<std::size_t>(reason_of(why, lacks_caption))];
    ++records.count;
    if (records.first.size() < most_records) records.first.push_back(log_id);
}

std::int64_t NoticesReport::left_out() const {
    std::int64_t sum = 0;
    for (const CountedRecords& records : left_out_) sum += records.count;
    return sum;
}

std::vector<CountedField> NoticesReport::fields_without_caption() const {
    std::vector<CountedField> fields;
    for (const auto& [field, count] : fields_) fields.push_back({field.first, field.second, count});
    std::ranges::stable_sort(fields, std::greater(), &CountedField::count);
    return fields;
}

std::string NoticesReport::failures_text() const {
    if (failure_count_ == 0) return {};
    const std::string count =
        failure_count_ == 1
            ? "1 Abfrage einer Beschriftung oder eines früheren Wertes schlug"
            : std::to_string(failure_count_) + " Abfragen von Beschriftungen oder früheren Werten schlugen";
    return "Die Datei kann unvollständig sein: " + count + " fehl, zuerst: " + first_failure_ + '\n';
}

std::string NoticesReport::fields_text() const {
    const std::vector<CountedField> fields = fields_without_caption();
    if (fields.empty()) return {};
    std::int64_t sum = 0;
    for (const CountedField& field : fields) sum += field.count;
    std::string text = sum == 1 ? "1 Feld ohne Beschriftung blieb weg: "
                                : std::to_string(sum) + " Felder ohne Beschriftung blieben weg: ";
    for (std::size_t i = 0; i < std::min(fields.size(), most_listed); ++i) {
        const CountedField& field = fields[i];
        text.append(i > 0 ? ", " : "").append(field.table).append(".").append(field.column);
        text += " (" + std::to_string(field.count) + ")";
    }
    return text + and_more(fields.size()) + '\n';
}

std::string NoticesReport::documents_text() const {
    const CountedRecords& records = left_out(LeftOut::unreadable_document);
    if (records.count == 0) return {};
    std::string text = records.count == 1 ? "1 Protokollsatz mit unlesbarem Änderungsdokument: "
                                          : std::to_string(records.count) +
                                                " Protokollsätze mit unlesbarem Änderungsdokument: ";
    for (std::size_t i = 0; i < std::min(records.first.size(), most_listed); ++i)
        text += (i > 0 ? ", " : "") + std::to_string(records.first[i]);
    return text + and_more(static_cast<std::size_t>(records.count)) + '\n';
}

}  // namespace prot
