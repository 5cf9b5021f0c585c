#pragma once

#include <oaidl.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "apps/srvprotqrbcsv/server_host.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/value.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/host/database_object.h"
#include "platform/windows/host/host_progress_parent.h"

namespace prot {

/// The arguments of gCSVAusgabe as the client passed them. Its spare argument vPara is not among them: no
/// section reads it, so it comes back as it was.
struct ExportCall {
    IDispatch* oDBU;
    std::int32_t lSection;
    BSTR sUser;
    DATE dtVon, dtBis;
    std::int32_t lAktion;
};

/// What the client has set.
struct ExportSettings {
    ComPtr<IDispatch> poParent;
    std::string psCommandline;
    bool pbLoeschen = false;
};

/// Whose name an error bears that arises here, before or behind the procedures of the core.
struct Owner {
    std::string_view name, procedure;
};

template <class Body>
auto named_after(const Owner& owner, Body body) try {
    return body();
} catch (...) {
    leave(owner.name, owner.procedure);
}

/// Runs `call` by `target`, the entry class or an exporter, with the host's objects held for the length of
/// the run, whatever the host does with its own references meanwhile. Raises what the run could not show.
template <class Target>
void run_export(Target& target, const Owner& owner, ServerHost& host, const ExportSettings& settings,
                const ExportCall& call) {
    const std::unique_ptr<DatabaseObject> database =
        named_after(owner, [&call] { return database_object(call.oDBU); });
    const std::unique_ptr<ProgressParent> progress = host_progress_parent(settings.poParent.borrow());
    struct Ending {
        Target& target;
        ServerHost& host;
        ~Ending() {
            target.poParent = nullptr;
            host.abandon();
        }
    } const ending{target, host};
    target.poParent = progress.get();
    target.psCommandline = settings.psCommandline;
    target.pbLoeschen = settings.pbLoeschen;
    host.begin(*database);
    Value spare;
    target.gCSVAusgabe(*database, call.lSection, text_of(call.sUser), Date{call.dtVon}, Date{call.dtBis},
                       call.lAktion, spare);
    named_after(owner, [&host] { host.end(); });
}

}  // namespace prot
