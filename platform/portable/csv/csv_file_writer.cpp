#include "platform/portable/csv/csv_file_writer.h"

#include <utility>

#include "platform/portable/files/same_place.h"

namespace prot {

namespace {

constexpr std::size_t buffer_size = std::size_t{256} * 1024;

// What a very long line may leave behind.
constexpr std::size_t kept_bytes = 1 << 20;

void name_source(AutomationError& error) {
    if (error.source().empty()) error.set_source("CsvFileWriter");
}

}  // namespace

class CsvFileWriter::Impl {
public:
    Impl(CsvFileOptions options, CsvFileHost& host, FileLayer& files)
        : options_(std::move(options)), host_(host), files_(files) {
        buffer_.reserve(buffer_size * 2);
    }

    bool open(std::string& file_name, bool ask_user) {
        abandon();
        path_.clear();
        std::string name = file_name;
        Existing existing = Existing::kept;
        if (!options_.output.empty()) {
            name = path_text(options_.output);
            existing = options_.existing_output;
        } else if (ask_user) {
            return start_chosen(file_name);
        }
        start(name, existing);
        file_name = std::move(name);
        return true;
    }

    void write_line(std::span<const std::string> cells) {
        need_file();
        try {
            encoder_->append_line(cells, buffer_);
            if (buffer_.size() >= buffer_size) flush();
        } catch (...) {
            abandon();
            throw;
        }
    }

    void close() {
        need_file();
        try {
            flush();
            file_->complete();
            path_ = path_text(shortest_path(file_->place()));
        } catch (...) {
            abandon();
            throw;
        }
        forget_file();
        finished_ = true;
        host_.file_finished(path_);
        const ReplacedCharacters& replaced = encoder_->replaced_characters();
        if (replaced.count > 0) host_.characters_replaced(path_, replaced);
    }

    void show() {
        if (finished_) host_.show_file(path_);
    }

    // Removes the unfinished file, if there is one.
    void abandon() {
        finished_ = false;
        buffer_.clear();
        if (!file_) return;
        file_->discard();
        forget_file();
    }

private:
    /// False when the person cancels.
    bool start_chosen(std::string& file_name) {
        for (;;) {
            const std::optional<std::string> choice = host_.ask_file_name(file_name);
            if (!choice) return false;
            const std::string& name = choice->empty() ? file_name : *choice;
            try {
                start(name, Existing::replaced);
                file_name = std::string(name);
                return true;
            } catch (const AutomationError& error) {
                if (!host_.asks_again(error)) throw;
            }
        }
    }

    void start(const std::string& name, Existing existing) {
        if (name.find('\0') != std::string::npos) {
            throw file_error(text_path(name), "der Name enthält ein Nullzeichen");
        }
        const std::filesystem::path file = text_path(name);
        const std::filesystem::path target = joined_path(options_.folder, file);
        if (!is_absolute_path(file) && !options_.folder.empty()) files_.make_folder(options_.folder);
        require_own_file(target);  // with its folder: what leads through a missing one is nobody's file yet
        std::unique_ptr<PendingFile> pending = files_.prepare(target, existing);
        encoder_.emplace(options_.separator, options_.encoding, options_.raw_cells);
        path_ = path_text(shortest_path(target));
        file_ = std::move(pending);
        try {
            const std::filesystem::path& temporary = file_->temporary_path();
            if (!temporary.empty()) host_.unfinished_file(path_text(temporary));
            file_->create();
        } catch (...) {
            abandon();
            throw;
        }
        host_.file_begins();
        buffer_ = byte_order_mark(options_.encoding);
    }

    void require_own_file(const std::filesystem::path& target) const {
        for (const std::filesystem::path& other : options_.never_replaced) {
            if (is_same_place(target, other)) throw file_error(target, "der Lauf selbst braucht diese Datei");
        }
    }

    void need_file() const {
        if (!file_) throw file_error(text_path(path_), "sie ist nicht geöffnet");
    }

    void flush() {
        file_->write(buffer_);
        host_.bytes_written(buffer_);
        buffer_.clear();
        if (buffer_.capacity() <= kept_bytes) return;
        buffer_ = std::string();
        buffer_.reserve(buffer_size * 2);
    }

    void forget_file() {
        const bool was_announced = !file_->temporary_path().empty();
        file_.reset();
        if (was_announced) host_.unfinished_file({});
    }

    const CsvFileOptions options_;
    CsvFileHost& host_;
    FileLayer& files_;
    std::optional<CsvLineEncoder> encoder_;
    std::unique_ptr<PendingFile> file_;
    std::string path_;  // of the file that is open, or was last
    std::string buffer_;
    bool finished_ = false;
};

CsvFileWriter::CsvFileWriter(CsvFileOptions options, CsvFileHost& host, FileLayer& files)
    : impl_(std::make_unique<Impl>(std::move(options), host, files)) {}

CsvFileWriter::~CsvFileWriter() {
    try {
        impl_->abandon();
    } catch (...) {
        // The host could not take the notice; the file is removed all the same.
    }
}

bool CsvFileWriter::open(std::string& file_name, bool ask_user) try {
    return impl_->open(file_name, ask_user);
} catch (AutomationError& error) {
    name_source(error);
    throw;
}

void CsvFileWriter::write_line(std::span<const std::string> cells) try {
    impl_->write_line(cells);
} catch (AutomationError& error) {
    name_source(error);
    throw;
}

void CsvFileWriter::close() try { impl_->close(); } catch (AutomationError& error) {
    name_source(error);
    throw;
}

void CsvFileWriter::show() { impl_->show(); }

}  // namespace prot
