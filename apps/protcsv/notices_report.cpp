#include "apps/protcsv/notices_report.h"

#include <algorithm>

namespace prot {

namespace {

constexpr std::size_t listed = 20;

std::string and_more(std::size_t all) {
    return all > listed ? " und " + std::to_string(all - listed) + " weitere" : std::string();
}

}  // namespace

void NoticesReport::field_without_caption(std::string_view table, std::string_view column) {
    const auto field = fields_.find(std::pair(table, column));
    if (field != fields_.end())
        ++field->second;
    else
        fields_.emplace(std::pair(std::string(table), std::string(column)), 1);
}

void NoticesReport::lookup_failed(std::string_view error) {
    if (failure_count_++ == 0) first_failure_ = error;
}

void NoticesReport::unreadable_document(std::int64_t log_id) {
    ++document_count_;
    if (documents_.size() < listed) documents_.push_back(log_id);
}

std::string NoticesReport::text() const { return fields_text() + documents_text(); }

std::string NoticesReport::failures_text() const {
    if (failure_count_ == 0) return {};
    const std::string count =
        failure_count_ == 1
            ? "1 Abfrage einer Beschriftung oder eines früheren Wertes schlug"
            : std::to_string(failure_count_) + " Abfragen von Beschriftungen oder früheren Werten schlugen";
    return "Die Datei kann unvollständig sein: " + count + " fehl, zuerst: " + first_failure_ + '\n';
}

std::string NoticesReport::fields_text() const {
    if (fields_.empty()) return {};
    std::vector<std::pair<std::string, std::int64_t>> fields;
    std::int64_t sum = 0;
    for (const auto& [field, count] : fields_) {
        fields.emplace_back(field.first + "." + field.second, count);
        sum += count;
    }
    std::ranges::stable_sort(fields, std::greater(), &std::pair<std::string, std::int64_t>::second);

    std::string text = sum == 1 ? "1 Feld ohne Beschriftung blieb weg: "
                                : std::to_string(sum) + " Felder ohne Beschriftung blieben weg: ";
    for (std::size_t i = 0; i < std::min(fields.size(), listed); ++i)
        text += (i > 0 ? ", " : "") + fields[i].first + " (" + std::to_string(fields[i].second) + ")";
    return text + and_more(fields.size()) + '\n';
}

std::string NoticesReport::documents_text() const {
    if (documents_.empty()) return {};
    std::string text = document_count_ == 1 ? "1 Protokollsatz mit unlesbarem Änderungsdokument: "
                                            : std::to_string(document_count_) +
                                                  " Protokollsätze mit unlesbarem Änderungsdokument: ";
    for (std::size_t i = 0; i < documents_.size(); ++i)
        text += (i > 0 ? ", " : "") + std::to_string(documents_[i]);
    return text + and_more(static_cast<std::size_t>(document_count_)) + '\n';
}

}  // namespace prot
