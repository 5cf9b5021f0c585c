#include "apps/protcsv/commands.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

#include "apps/protcsv/console/interruption.h"
#include "apps/protcsv/displays/progress_bar.h"
#include "apps/protcsv/options/usage_error.h"
#include "apps/protcsv/sample/sample_database.h"
#include "apps/protcsv/sample/sample_script.h"
#include "platform/automation/error.h"
#include "platform/portable/files/folder_access.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/files/private_folder.h"
#include "platform/portable/files/temporary_name.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

/// The file under construction; removed unless it is kept.
class UnfinishedFile {
public:
    explicit UnfinishedFile(std::string path) : path_(std::move(path)) { set_unfinished_file(path_); }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile() {
        std::error_code ignored;
        fs::remove(text_path(path_), ignored);
        set_unfinished_file({});
    }

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// A database that is needed for a while, in a folder of its own; both go with it.
class PassingDatabase {
public:
    explicit PassingDatabase(fs::path folder) : folder_(std::move(folder)) {
        const std::string files[] = {name, std::string(name) + "-journal"};
        set_unfinished_folder(path_text(folder_), files);
    }
    PassingDatabase(const PassingDatabase&) = delete;
    PassingDatabase& operator=(const PassingDatabase&) = delete;
    ~PassingDatabase() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
        set_unfinished_folder({}, {});
    }

    std::string path() const { return path_text(folder_ / name); }

private:
    static constexpr const char* name = "beispiel.db";

    const fs::path folder_;
};

[[noreturn]] void fail(const std::string& description) {
    throw AutomationError(ErrorNumber::file, description);
}

/// A sample replaces an empty file and an earlier sample, in which nobody's work is lost; anything else when
/// asked.
void require_free_place(const fs::path& path, bool overwrite, bool is_sample(const std::string& path)) {
    std::error_code ignored;
    const fs::path folder = path.parent_path();
    const fs::file_status kind = folder.empty() ? fs::status(".", ignored) : fs::status(folder, ignored);
    const bool hidden = kind.type() == fs::file_type::none;  // nobody knows whether it is there
    if (!hidden && !fs::is_directory(kind)) fail("Den Ordner „" + path_text(folder) + "“ gibt es nicht.");
    if (hidden || folder_refusal(folder))
        fail("In den Ordner „" + (folder.empty() ? "." : path_text(folder)) +
             "“ darf nicht geschrieben werden.");
    const fs::file_status status = fs::status(path, ignored);
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status)) fail("„" + path_text(path) + "“ ist keine gewöhnliche Datei.");
    if (!overwrite && fs::file_size(path, ignored) > 0 && !is_sample(path_text(path)))
        fail("Die Datei „" + path_text(path) + "“ gibt es schon; --overwrite ersetzt sie.");
}

/// The terminal that shows how far the sample is.
TerminalSettings status_line(const Console& console) {
    TerminalSettings settings;
    settings.output = &console.err;
    settings.columns = console.err_columns;
    settings.erases = console.err_erases;
    return settings;
}

void write_with_progress(const std::string& path, const SampleOptions& sample, const Console& console) {
    if (!console.has_status_line()) return write_sample_database(path, sample);
    Terminal terminal(status_line(console));
    ProgressBar bar(terminal);
    write_sample_database(path, sample, &bar);
}

}  // namespace

int print(const Console& console, std::string_view text) {
    console.out << text << std::flush;
    if (console.out) return exit_done;
    complain(console, standard_output_refuses);
    return exit_error;
}

void complain(const Console& console, std::string_view text) {
    console.err << "protcsv: " << text << std::endl;
}

int tell_failure(const Console& console) {
    try {
        throw;
    } catch (const UsageError& error) {
        complain(console, error.what());
        return exit_usage;
    } catch (const AutomationError& error) {
        complain(console, error.description());
    } catch (const std::bad_alloc&) {
        complain(console, out_of_memory_text);  // takes none
    } catch (const std::exception& error) {
        complain(console, "Unerwarteter Fehler:");
        complain(console, error.what());
    }
    return exit_error;
}

int print_sections(const Console& console, SectionTable sections) {
    std::size_t width = 0;
    for (const Section& section : sections) width = std::max(width, section.name.size());
    std::string text;
    for (const Section& section : sections) {
        const std::string number = std::to_string(section.number);
        text += std::string(number.size() < 2 ? 2 - number.size() : 0, ' ') + number + "  ";
        text += std::string(section.name) + std::string(width - section.name.size() + 2, ' ');
        text += std::string(section.title) + '\n';
    }
    return print(console, text);
}

int write_sample(const Options& options, const Console& console) {
    const fs::path place = text_path(options.sample_file);
    require_free_place(place, options.overwrite,
                       options.sample_as_script ? is_sample_script : is_sample_database);
    const auto finish = [&](const UnfinishedFile& file) {
        std::error_code error;
        fs::rename(text_path(file.path()), place, error);
        if (error) fail("Die Datei „" + options.sample_file + "“ lässt sich nicht anlegen.");
        return print(console, options.sample_file + '\n');
    };
    if (options.sample_as_script) {
        const PassingDatabase database(make_private_folder(temporary_name(place)));
        write_with_progress(database.path(), options.sample, console);
        const UnfinishedFile script(path_text(temporary_name(place)));
        write_sample_script(database.path(), script.path());
        return finish(script);
    }
    const UnfinishedFile database(path_text(temporary_name(place)));
    write_with_progress(database.path(), options.sample, console);
    return finish(database);
}

}  // namespace prot
