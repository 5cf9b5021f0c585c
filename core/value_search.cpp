#include "core/value_search.h"

#include "core/ProtQRBCsvBas.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

/// The log's way to write a column of a change document up to its old value; the LIKE search depends on every
/// letter.
std::string old_value_pattern(std::string_view column, Database& oDBU) {
    const std::string wildcard = oDBU.like_wildcard();
    return wildcard + "Name=\"" + std::string(column) + "\"><OldValue>" + wildcard;
}

/// The document of the earliest change that tells an old value, among those of a condition.
std::string log_search(const ValueKey& key, std::string_view condition, const std::string& pattern,
                       Database& oDBU) {
    return to_text(oDBU.query_value(std::string("SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '")
                                        .append(key.table)
                                        .append("' AND ")
                                        .append(key.log_column)
                                        .append(" = ")
                                        .append(key.key)
                                        .append(condition)
                                        .append(" AND dmData LIKE '")
                                        .append(pattern)
                                        .append("' ORDER BY ddDatum ASC")));
}

}  // namespace

std::string first_change(const ValueKey& key, Date moment, Database& oDBU) {
    const std::string pattern = old_value_pattern(key.column, oDBU);
    // A moment is a second.
    const std::string from = " AND ddDatum >= " + oDBU.date_literal(add_seconds(moment, -1));
    return log_search(key, from, pattern, oDBU);
}

std::string deletion_of(const ValueKey& key, Database& oDBU) {
    return log_search(key, " AND dlEvent = 2 ", old_value_pattern(key.column, oDBU), oDBU);
}

std::string live_search(const ValueKey& key) {
    return std::string("SELECT [")
        .append(key.column)
        .append("] FROM [")
        .append(key.table)
        .append("] WHERE [")
        .append(key.key_column)
        .append("] = ")
        .append(key.key);
}

std::optional<std::string> old_value(std::string_view document, std::string_view column,
                                     Environment& environment) {
    const auto oXML = create_change_document_reader(environment);
    if (!oXML->load(document)) return std::nullopt;
    return std::string(oXML->old_value_of(column));
}

}  // namespace prot
