#include "tests/odbc/double/script.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "platform/automation/text_parts.h"

namespace prot::odbc_double {

namespace {

using Fields = std::vector<std::string>;

constexpr std::string_view null_field = "\\N";

std::string without_escapes(std::string_view field) {
    constexpr std::pair<char, char> escapes[] = {{'t', '\t'}, {'r', '\r'}, {'n', '\n'}, {'\\', '\\'}};
    std::string text;
    for (std::size_t at = 0; at < field.size(); ++at) {
        const auto* const escape =
            field[at] == '\\' && at + 1 < field.size()
                ? std::ranges::find(escapes, field[at + 1], &std::pair<char, char>::first)
                : std::end(escapes);
        if (escape != std::end(escapes)) ++at;
        text += escape != std::end(escapes) ? escape->second : field[at];
    }
    return text;
}

Cell cell_of(const std::string& field) {
    if (field == null_field) return std::nullopt;
    return without_escapes(field);
}

/// State, native number and message, as often as they stand there.
std::vector<Record> records_of(const Fields& fields) {
    std::vector<Record> records;
    for (std::size_t at = 1; at + 2 < fields.size(); at += 3)
        records.push_back({fields[at], std::stoi(fields[at + 1]), without_escapes(fields[at + 2])});
    if (records.empty()) throw std::invalid_argument("a record has state, number and message");
    return records;
}

Column named_column(const std::string& field) {
    const std::size_t blank = field.find(' ');
    if (blank == std::string::npos) throw std::invalid_argument("a column has a name and a type");
    return column_of(field.substr(0, blank), std::string_view(field).substr(blank + 1));
}

/// A step's own word stands in fields[0].
struct Step {
    std::string_view word;
    void (*take)(ScriptedResult& result, const Fields& fields);
};
constexpr Step steps[] = {
    {"hang", [](ScriptedResult& result,
                const Fields& fields) { result.hang = std::chrono::milliseconds(std::stoi(fields.at(1))); }},
    {"warn", [](ScriptedResult& result, const Fields& fields) { result.warnings = records_of(fields); }},
    {"columns",
     [](ScriptedResult& result, const Fields& fields) {
         std::transform(fields.begin() + 1, fields.end(), std::back_inserter(result.columns), named_column);
     }},
    {"row",
     [](ScriptedResult& result, const Fields& fields) {
         if (fields.size() - 1 != result.columns.size())
             throw std::invalid_argument("a row of other columns");
         std::transform(fields.begin() + 1, fields.end(), std::back_inserter(result.rows.emplace_back()),
                        cell_of);
     }},
    {"own",
     [](ScriptedResult& result, const Fields& fields) {
         result.is_own = true;
         if (fields.size() > 1) result.own_rows = std::stoul(fields[1]);
     }},
    {"count", [](ScriptedResult& result, const Fields& fields) { result.count = std::stoll(fields.at(1)); }},
    {"fail", [](ScriptedResult& result, const Fields& fields) { result.failure = records_of(fields); }},
    {"lost", [](ScriptedResult& result, const Fields&) { result.is_lost = true; }},
};

/// A rule that does nothing but wait or warn lets the statement run.
void complete(Rule& rule) {
    for (ScriptedResult& result : rule.results)
        if (result.columns.empty() && result.failure.empty() && !result.is_lost && result.count < 0)
            result.is_own = true;
}

struct Reader {
    std::chrono::microseconds delay{0};
    std::vector<Rule> rules;

    void take(const Fields& fields) {
        const std::string& word = fields.front();
        if (word == "delay") {
            delay = std::chrono::microseconds(std::stoi(fields.at(1)));
        } else if (word == "when") {
            rules.push_back({fields.at(1), fields.size() > 2 ? std::stoi(fields[2]) : 0, {{}}});
        } else if (rules.empty()) {
            throw std::invalid_argument("a step without a rule: " + word);
        } else if (word == "next") {
            rules.back().results.emplace_back();
        } else {
            const auto* const step = std::ranges::find(steps, word, &Step::word);
            if (step == std::end(steps)) throw std::invalid_argument("no step of a script: " + word);
            step->take(rules.back().results.back(), fields);
        }
    }
};

bool fits(const Rule& rule, std::string_view text) {
    return text.starts_with('[') == rule.text.starts_with('[') && text.find(rule.text) != std::string::npos;
}

}  // namespace

std::shared_ptr<Script> Script::of_file(const std::string& path) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<Script>> scripts;
    const std::lock_guard lock(mutex);
    std::shared_ptr<Script>& script = scripts[path];
    if (!script) script = std::make_shared<Script>(path);
    return script;
}

std::shared_ptr<const Rule> Script::rule_for(std::string_view text) {
    const std::lock_guard lock(mutex_);
    read();
    std::shared_ptr<const Rule> found;
    for (std::size_t number = 0; number < rules_.size(); ++number) {
        const Rule& rule = *rules_[number];
        if (!fits(rule, text)) continue;
        const int turn = ++turns_[number];
        if (!found && (rule.turn == 0 || rule.turn == turn)) found = rules_[number];
    }
    return found;
}

std::chrono::microseconds Script::delay() {
    const std::lock_guard lock(mutex_);
    return delay_;
}

/// Turns are counted from when the script was last changed.
void Script::read() {
    std::ifstream file(path_, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (content == content_) return;
    Reader reader;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);)
        if (!line.empty() && line.front() != '#') reader.take(split(line, '\t'));
    rules_.clear();
    for (Rule& rule : reader.rules) {
        complete(rule);
        rules_.push_back(std::make_shared<const Rule>(std::move(rule)));
    }
    turns_.assign(rules_.size(), 0);
    delay_ = reader.delay;
    content_ = std::move(content);
}

}  // namespace prot::odbc_double
