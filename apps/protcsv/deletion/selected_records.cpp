#include "apps/protcsv/deletion/selected_records.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/ProtQRBCsvBas.h"
#include "platform/automation/error.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view count_head = "SELECT COUNT(*) FROM ";
constexpr std::string_view delete_head = "DELETE ";
constexpr std::string_view memo_condition = "Memo WHERE flProtokoll in (";
constexpr std::string_view where = " WHERE ";

[[noreturn]] void not_understood(std::string_view sql) {
    throw AutomationError(ErrorNumber::internal,
                          "Die Löschanweisung ist nicht von der erwarteten Form. "
                          "Anweisung: " +
                              std::string(sql));
}

/// What stands behind `head`, up to and behind " WHERE ".
std::pair<std::string_view, std::string_view> table_and_condition(std::string_view sql,
                                                                  std::string_view head) {
    const std::size_t end = sql.find(where, head.size());
    if (!sql.starts_with(head) || end == std::string_view::npos) not_understood(sql);
    return {sql.substr(head.size(), end - head.size()), sql.substr(end + where.size())};
}

}  // namespace

SelectedRecords SelectedRecords::counted_by(std::string_view sql) {
    const auto [table, condition] = table_and_condition(sql, count_head);
    return {table, condition};
}

SelectedRecords SelectedRecords::deleted_by(std::string_view sql) {
    const auto [first, rest] = table_and_condition(sql, delete_head);
    const std::size_t memo = sql.find(memo_condition);
    if (memo == std::string_view::npos || memo + memo_condition.size() > sql.size()) return {first, rest};
    const std::string_view inner = sql.substr(memo + memo_condition.size());
    if (!inner.ends_with(')')) not_understood(sql);
    const auto [table, condition] =
        table_and_condition(inner.substr(0, inner.size() - 1), "SELECT idProtokoll FROM ");
    return {table, condition};
}

bool SelectedRecords::is_counting(std::string_view sql) { return sql.starts_with(count_head); }
bool SelectedRecords::is_deleting(std::string_view sql) { return sql.starts_with(delete_head); }

bool SelectedRecords::have_memos() const { return to_lower(std::string_view(table_)) == "tprotokoll"; }

std::string SelectedRecords::id_column() const { return log_id_column(table_); }

std::string SelectedRecords::ids_statement() const {
    return "SELECT " + id_column() + " FROM " + table_ + std::string(where) + condition_;
}

std::vector<std::int64_t> SelectedRecords::ids(Database& database) const {
    std::vector<std::int64_t> result;
    const std::unique_ptr<RowStream> rows = database.query_rows(ids_statement());
    for (const RowSet* batch = &rows->next_batch(); !batch->empty(); batch = &rows->next_batch())
        for (std::size_t row = 0; row < batch->rows(); ++row) {
            const Cell& id = batch->at(0, row);
            if (id.type() != Cell::Type::integer)
                throw AutomationError(ErrorNumber::type_mismatch,
                                      "Ein Protokollsatz in „" + table_ + "“ hat keine Zahl als Nummer.");
            result.push_back(id.integer());
        }
    std::ranges::sort(result);
    return result;
}

std::int64_t SelectedRecords::memos(Database& database) const {
    if (!have_memos()) return 0;
    const std::string sql =
        std::string(count_head) + table_ + std::string(memo_condition) + ids_statement() + ")";
    return static_cast<std::int64_t>(val(to_text(database.query_value(sql))));
}

bool SelectedRecords::are_deleted_by(std::string_view sql) const {
    return sql == std::string(delete_head) + table_ + std::string(where) + condition_;
}

}  // namespace prot
