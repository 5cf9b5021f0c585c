#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/tsql/tsql_dialect.h"
#include "platform/portable/tsql/tsql_reader.h"
#include "platform/portable/tsql/tsql_writer.h"

namespace prot {

/// A recursive descent through a T-SQL batch: each function reads one construct of the grammar and writes it
/// in SQLite's dialect. Used by translate_tsql only.
class TsqlTranslator {
public:
    explicit TsqlTranslator(std::string_view text) : reader_(text) {}

    std::vector<TsqlStatement> batch();

private:
    enum class Meaning { value, condition };

    /// What is known of a query that has been written.
    struct Query {
        bool compound = false;  ///< joined by UNION and the like
        bool ended = false;     ///< ORDER BY or LIMIT is written
        std::string_view top;   ///< the number of TOP, still to be written as LIMIT
    };

    class Nesting;

    // tsql_dialect.cpp: statements
    TsqlStatement statement();
    void removal();
    void drop();

    // tsql_query.cpp: SELECT and its clauses
    void subquery();
    Query query(bool is_statement);
    bool at_set_operator() const;
    void set_operator(bool& after_union);
    Query set_operand(bool may_fill);
    void finish_operand(std::size_t mark, const Query& operand, bool is_right);
    Query selection(bool may_fill);
    std::string_view top();
    bool select_list();
    bool select_item();
    void into(bool may_fill, bool all_named);
    void filter();
    void grouping();
    void ordering();
    void ordering_item();
    void limit(std::string_view count);

    // tsql_tables.cpp: FROM
    void tables();
    int joined_tables();
    bool join();
    void table_operand(bool first);
    void derived_table();
    void table_name();
    std::string temporary_name();
    bool alias();

    // tsql_expression.cpp: conditions and values
    void condition();
    void value();
    Meaning disjunction();
    Meaning conjunction();
    Meaning negation();
    Meaning predicate();
    void in_list();
    void pattern();
    Meaning operand();
    Meaning bare_operand();
    Meaning parenthesised();
    void existence();
    void text();
    void number(bool negative);
    void column();
    void aggregate();
    void need_condition(Meaning meaning) const;

    TsqlReader reader_;
    TsqlWriter writer_;
    std::string temporary_table_;                 // of SELECT … INTO in this statement
    std::vector<const Token*> repeating_tables_;  // in the subqueries of IN read so far
    int depth_ = 0;                               // parentheses and queries inside one another
};

/// Counts how deep constructs stand inside one another, so that no text exhausts the stack. SQLite's own
/// parser gives up at about the same depth.
class TsqlTranslator::Nesting {
public:
    explicit Nesting(TsqlTranslator& translator) : depth_(translator.depth_) {
        if (++depth_ > deepest) {
            const TsqlReader& reader = translator.reader_;
            reader.refuse(reader.look(), "zu tief geschachtelt");
        }
    }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    static constexpr int deepest = 100;
    int& depth_;
};

}  // namespace prot
