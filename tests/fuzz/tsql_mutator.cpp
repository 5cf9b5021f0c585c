#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

/// Changes a T-SQL text by whole words, so that many of the changed texts still are statements. A third of
/// the changes is left to libFuzzer, which changes bytes.
namespace {

// clang-format off
constexpr std::string_view phrases[] = {
    "SELECT", "SELECT a FROM T", "SELECT a , b AS c FROM T", "SELECT * FROM T", "SELECT 1", "DISTINCT",
    "ALL", "TOP 1", "TOP ( 2 )", "INTO #t", "FROM", "FROM T", "FROM #t x", "FROM ( SELECT a FROM T ) d",
    "WHERE", "WHERE a = 1", "GROUP BY", "GROUP BY a", "HAVING COUNT ( * ) > 1", "ORDER BY", "ORDER BY 1",
    "ORDER BY a DESC", "UNION", "UNION ALL", "EXCEPT", "INTERSECT", "JOIN", "INNER JOIN U ON a = b",
    "LEFT JOIN ( U CROSS JOIN V ) ON", "CROSS JOIN U", ",", "(", ")", "( (", ") )", "( SELECT a FROM T )",
    "( ( SELECT b FROM U ) )", "AND", "OR", "NOT", "IN", "IN ( 1 , 2 )", "IN ( )", "BETWEEN 1 AND 2",
    "LIKE 'x%'", "LIKE '[a]'", "IS NULL", "IS NOT NULL", "EXISTS", "NULL", "AS x", "x", "T.a", "T .*", "*",
    "[a]]b]", "\"c\"\"d\"", "[;]", "[--]", "'it''s'", "N'x'", "';'", "'--'", "'?'", "1", "-1", "- 1", ".5",
    "1.", "1e5", "COUNT ( * )", "MAX ( a )", "SUM ( DISTINCT a )", "=", "<>", "!=", ">=", "!<", ";",
    "DELETE T", "DELETE FROM", "DROP TABLE #t", "DROP TABLE IF EXISTS #t", "-- x\n", "/* x */",
};
// clang-format on

std::vector<std::string> words_of(std::string_view text) {
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    return words;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

class WordMutation {
public:
    explicit WordMutation(unsigned seed) : random_(seed) {}

    bool is_left_to_bytes() { return below(3) == 0; }

    void change(std::vector<std::string>& words) {
        const std::size_t at = below(words.size());
        const auto place = words.begin() + static_cast<std::ptrdiff_t>(at);
        switch (below(5)) {
            case 0:
                words.insert(place, phrase());
                break;
            case 1:
                *place = phrase();
                break;
            case 2:
                if (words.size() > 1) words.erase(place);
                break;
            case 3:
                std::swap(*place, words[below(words.size())]);
                break;
            default:
                repeat(words, at);
        }
    }

    std::size_t below(std::size_t end) { return random_() % end; }

private:
    std::string phrase() { return std::string(phrases[below(std::size(phrases))]); }

    // Puts a run of words in another place once more.
    void repeat(std::vector<std::string>& words, std::size_t at) {
        const auto first = words.begin() + static_cast<std::ptrdiff_t>(at);
        const auto length = static_cast<std::ptrdiff_t>(1 + below(words.size() - at));
        const std::vector<std::string> run(first, first + length);
        const auto place = words.begin() + static_cast<std::ptrdiff_t>(below(words.size() + 1));
        words.insert(place, run.begin(), run.end());
    }

    std::minstd_rand random_;
};

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned seed) {
    WordMutation mutation(seed);
    if (mutation.is_left_to_bytes()) return LLVMFuzzerMutate(data, size, max_size);
    std::vector<std::string> words = words_of({reinterpret_cast<const char*>(data), size});
    for (std::size_t changes = 1 + mutation.below(3); changes > 0; --changes) mutation.change(words);
    const std::string text = joined(words).substr(0, max_size);
    std::copy(text.begin(), text.end(), data);
    return text.size();
}
