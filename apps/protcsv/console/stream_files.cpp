#include "apps/protcsv/console/stream_files.h"

#include <ostream>

#include "apps/protcsv/commands.h"

namespace prot {

namespace {

class StreamFile : public PendingFile {
public:
    StreamFile(std::ostream& stream, std::filesystem::path place)
        : stream_(stream), place_(std::move(place)) {}

    const std::filesystem::path& temporary_path() const override { return none_; }
    void create() override {}
    void write(std::string_view bytes) override {
        stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        require_stream();
    }
    void complete() override {
        stream_.flush();
        require_stream();
    }
    const std::filesystem::path& place() const override { return place_; }
    void discard() noexcept override {}

private:
    void require_stream() const {
        if (!stream_) throw AutomationError(ErrorNumber::file, std::string(standard_output_refuses));
    }

    std::ostream& stream_;
    const std::filesystem::path place_;
    const std::filesystem::path none_;
};

}  // namespace

std::unique_ptr<PendingFile> StreamFiles::prepare(const std::filesystem::path& target,
                                                  Existing /*existing*/) {
    return std::make_unique<StreamFile>(stream_, target);
}

}  // namespace prot
