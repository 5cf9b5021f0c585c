#include "apps/protcsv/sample/sample_database.h"

#include <array>
#include <fstream>
#include <memory>
#include <vector>

#include "apps/protcsv/sample/sample_sections.h"
#include "platform/portable/files/paths.h"

namespace prot {
namespace {

constexpr std::uint64_t first_moments_stream = 1000;

/// A section, and what it still has to log.
struct Part {
    std::unique_ptr<sample::Section> section;
    sample::Moments moments;
    std::int64_t rows_left;
    sample::Moment next;  ///< of its next change; meaningless when there is none
};

bool takes_part(const sample::SectionKind& kind, const SampleOptions& options) {
    return !options.section || *options.section == kind.number;
}

std::int64_t usual_rows(const SampleOptions& options) {
    std::int64_t sum = 0;
    for (const sample::SectionKind& kind : sample::section_kinds())
        if (takes_part(kind, options)) sum += kind.usual_rows;
    return sum;
}

/// Shares `rows` out among the sections, in proportion to their usual rows and without a rest. A section that
/// takes no part gets none.
std::vector<Part> create_parts(const SampleOptions& options, std::int64_t rows, sample::ClientBook& clients) {
    std::vector<Part> parts;
    std::int64_t rows_left = rows;
    std::int64_t weight_left = usual_rows(options);
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        const std::int64_t weight = takes_part(kind, options) ? kind.usual_rows : 0;
        const std::int64_t share = weight == 0 ? 0 : rows_left * weight / weight_left;
        sample::Moments moments(sample::Random(options.seed, first_moments_stream + kind.stream), share);
        const sample::Moment first = share == 0 ? sample::Moment() : moments.next();
        parts.push_back(
            {kind.create(sample::Random(options.seed, kind.stream), share, clients), moments, share, first});
        rows_left -= share;
        weight_left -= weight;
    }
    return parts;
}

/// The part that changes something next; null when all have logged everything.
Part* next_part(std::vector<Part>& parts) {
    Part* earliest = nullptr;
    for (Part& part : parts)
        if (part.rows_left > 0 && (earliest == nullptr || part.next < earliest->next)) earliest = &part;
    return earliest;
}

void write_log(SqliteFile& file, std::vector<Part>& parts, std::int64_t rows, ProgressParent* progress) {
    sample::LogWriter log(file);
    std::int32_t written = 0;
    while (Part* const part = next_part(parts)) {
        if (progress != nullptr) progress->gSetFortschritt(written++, static_cast<std::int32_t>(rows));
        log.add(part->section->log_change(part->next));
        if (--part->rows_left == 0) continue;
        // Every row takes a moment, used or not, so that the log ends where it should.
        const sample::Moment next = part->moments.next();
        if (!part->section->goes_on()) part->next = next;
    }
    log.finish();
}

/// SQLite's application id of sample databases: "PrSa". It stands at byte 68 of the file, the highest byte
/// first. Source: SQLite, Database File Format.
constexpr std::uint32_t sample_mark = 0x50725361;
constexpr std::streamoff sample_mark_place = 68;

}  // namespace

void write_sample_database(const std::string& path, const SampleOptions& options, ProgressParent* progress) {
    const std::int64_t rows = options.rows.value_or(usual_rows(options));
    SqliteFile file(path, "Die Beispieldatenbank");
    // A file that is not complete is worth nothing, so nothing is spent on getting back to an earlier state.
    file.execute(
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE; BEGIN;"
        "PRAGMA application_id = " +
        std::to_string(sample_mark) + ";");
    sample::create_log_tables(file);
    sample::ClientBook clients;
    std::vector<Part> parts = create_parts(options, rows, clients);
    write_log(file, parts, rows, progress);
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
