#include "apps/protcsv/deletion/deletion_run.h"

#include <algorithm>

#include "apps/protcsv/options/request_words.h"
#include "apps/protcsv/report/closing_text.h"
#include "apps/protcsv/report/report_text.h"
#include "core/ProtQRBCsvBas.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

/// What a filter says of no client is easily overlooked.
std::string selection_text(const std::string& filter) {
    constexpr std::string_view nobody = "Mandant:  ,";
    return filter.starts_with(nobody) ? "alle Mandanten und Kanzleien," + filter.substr(nobody.size())
                                      : filter;
}

}  // namespace

DeletionRun::DeletionRun(const Options& options, SectionTable sections, RunAccount& account, Host& host,
                         Displays& displays)
    : options_(options),
      sections_(sections),
      account_(account),
      host_(host),
      boxes_(
          displays.message_boxes(), [this] { return subject(); },
          options.dry_run ? DeletionBoxes::Text([this] { return trial(); }) : DeletionBoxes::Text()) {
    account_.deletion.emplace();
}

const Section& DeletionRun::section() const {
    return *std::ranges::find(sections_, options_.request.section, &Section::number);
}

std::string DeletionRun::subject() const {
    const LogRequest& request = options_.request;
    const std::string& filter = account_.notices.filter_text();
    std::string text = options_.dry_run ? "Gelöscht würde:" : "Gelöscht wird:";
    const auto add = [&text](std::string_view name, std::string_view value) {
        text.append(line_break).append("  ").append(name).append(value);
    };
    add("Datenbank:   ", options_.database.shown());
    add("Bereich:     ", std::string(section().title) + " (" + std::to_string(section().number) + ")");
    if (!filter.empty()) add("Auswahl:     ", selection_text(filter));
    add("Zeitraum:    ", period_text(request));
    add("Mitarbeiter: ", user_text(request));
    add("Ereignisse:  ", events_text(request));
    if (!options_.archive.empty() && !options_.dry_run) add("Archiv in:   ", options_.archive);
    return text;
}

std::string DeletionRun::trial() {
    const Deleted found = deletion_->found();
    account_.deletion->state = "trial";
    account_.deletion->records = found.records;
    account_.deletion->memos = found.memos;
    return "Probelauf: Es würden " + amount_text(found.records, found.memos) +
           " gelöscht. Gelöscht ist nichts.";
}

Database& DeletionRun::stand_before(Database& statements, HostDatabase& database,
                                    std::function<void()> export_selection) {
    if (!options_.archive.empty()) {
        const auto export_csv = [this, export_selection =
                                           std::move(export_selection)](const std::filesystem::path& folder) {
            export_into(folder, export_selection);
        };
        const auto receipt = [this](std::optional<int> status) {
            return report_text(options_, sections_, account_, status);
        };
        archive_.emplace(archive_place(), options_.request.section, database, account_,
                         ArchiveMakers{export_csv, receipt});
    }
    return deletion_.emplace(statements, database, archive_ ? &*archive_ : nullptr);
}

void DeletionRun::step_aside() {
    if (const std::optional<Deleted> deleted = deletion_->deleted()) {
        DeletionAccount& account = *account_.deletion;
        // Without an archive the memo texts may be gone and the records not.
        if (!archive_) account.state = deletion_->is_complete() ? "deleted" : "memos_deleted";
        account.records = deleted->records;
        account.memos = deleted->memos;
    }
    deletion_.reset();
}

std::filesystem::path DeletionRun::archive_place() const {
    std::string name = "Archiv_" + replaced(std::string(section().title), " ", "_");
    Environment environment = host_.environment();
    return text_path(options_.archive) / text_path(name + gsDateiZeitstempel(environment));
}

void DeletionRun::export_into(const std::filesystem::path& folder,
                              const std::function<void()>& export_selection) {
    const DeletionBoxes::Silence silence(boxes_);
    host_.write_into(folder);
    export_selection();
    if (account_.notices.failed_lookups() == 0) return;
    throw AutomationError(ErrorNumber::internal,
                          "Es wurde nichts gelöscht: Die CSV-Datei des Archivs wäre unvollständig. " +
                              account_.notices.failures_text());
}

std::string DeletionRun::end_text(bool quiet) const {
    const DeletionAccount& account = *account_.deletion;
    std::string text;
    if (archive_ && !archive_->trouble().empty()) text = archive_->trouble() + '\n';
    if (account.state == "unknown")
        return text + "Ob die Protokollsätze gelöscht sind, ist nicht bekannt; das Archiv bleibt: „" +
               account.folder + "“.\n";
    if (account.state == "memos_deleted")
        return text + "Gelöscht sind schon die Memotexte der ausgewählten Protokollsätze (" +
               grouped(account.memos) + "), die Sätze selbst nicht.\n";
    if (account.state != "deleted") return text;
    const std::string amount = amount_text(account.records, account.memos);
    if (account.folder.empty() && options_.yes)
        return text + "Endgültig gelöscht, ohne Archiv (--archive): " + amount + ".\n";
    if (!quiet) text += "Gelöscht: " + amount + ".\n";
    return text;
}

}  // namespace prot
