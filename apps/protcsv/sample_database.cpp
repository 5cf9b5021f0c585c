#include "apps/protcsv/sample_database.h"

#include <array>
#include <fstream>
#include <memory>
#include <vector>

#include "apps/protcsv/sample_sections.h"
#include "platform/automation/error.h"
#include "platform/portable/paths.h"

namespace prot {
namespace {

using sample::SampleFile;

constexpr std::uint64_t moments_stream = 1000;
constexpr std::uint64_t turns_stream = 1001;

struct Part {
    std::unique_ptr<sample::Section> section;
    std::int64_t rows_left;
};

std::int64_t usual_rows() {
    std::int64_t sum = 0;
    for (const sample::SectionKind& kind : sample::section_kinds()) sum += kind.usual_rows;
    return sum;
}

/// Shares `rows` out among the sections, in proportion to their usual rows and without a rest.
std::vector<Part> create_parts(std::uint64_t seed, std::int64_t rows) {
    std::vector<Part> parts;
    std::int64_t rows_left = rows;
    std::int64_t weight_left = usual_rows();
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        const std::int64_t share = rows_left * kind.usual_rows / weight_left;
        parts.push_back({kind.create(sample::Random(seed, parts.size()), share), share});
        rows_left -= share;
        weight_left -= kind.usual_rows;
    }
    return parts;
}

/// The part whose turn it is: by chance, each as likely as it still has rows to log.
Part& next_part(std::vector<Part>& parts, std::int64_t rows_left, sample::Random& random) {
    std::int64_t place = random.below(rows_left);
    for (Part& part : parts) {
        if (place < part.rows_left) return part;
        place -= part.rows_left;
    }
    return parts.back();
}

void write_log(SampleFile& file, std::vector<Part>& parts, std::uint64_t seed, std::int64_t rows) {
    sample::Moments moments(sample::Random(seed, moments_stream), rows);
    sample::Random turns(seed, turns_stream);
    sample::LogWriter log(file);
    for (std::int64_t rows_left = rows; rows_left > 0; --rows_left) {
        Part& part = next_part(parts, rows_left, turns);
        log.add(part.section->log_change(moments.next()));
        --part.rows_left;
    }
    log.finish();
}

/// SQLite's application id of sample databases: "PrSa". It stands at byte 68 of the file, the highest byte
/// first. Source: SQLite, Database File Format.
constexpr std::uint32_t sample_mark = 0x50725361;
constexpr std::streamoff sample_mark_place = 68;

void check_rows(std::int64_t rows) {
    if (rows >= 0 && rows <= most_sample_rows) return;
    throw AutomationError(ErrorNumber::overflow,
                          "Die Anzahl der Protokollsätze muss zwischen 0 und 30000000 liegen.");
}

}  // namespace

void write_sample_database(const std::string& path, const SampleOptions& options) {
    const std::int64_t rows = options.rows.value_or(usual_rows());
    check_rows(rows);

    SampleFile file(path);
    // A file that is not complete is worth nothing, so nothing is spent on getting back to an earlier state.
    file.execute(
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE; BEGIN;"
        "PRAGMA application_id = " +
        std::to_string(sample_mark) + ";");
    sample::create_log_tables(file);
    std::vector<Part> parts = create_parts(options.seed, rows);
    write_log(file, parts, options.seed, rows);
    for (const Part& part : parts) {
        part.section->write_master_data(file);
        sample::write_captions(file, part.section->captions());
    }
    sample::create_log_indexes(file);
    file.execute("COMMIT;");
    file.close();
}

bool is_sample_database(const std::string& path) {
    std::ifstream file(text_path(path), std::ios::binary);
    std::array<unsigned char, 4> bytes{};
    file.seekg(sample_mark_place);
    file.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
    std::uint32_t mark = 0;
    for (const unsigned char byte : bytes) mark = mark << 8 | byte;
    return file && mark == sample_mark;
}

}  // namespace prot
