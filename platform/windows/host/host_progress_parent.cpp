#include "platform/windows/host/host_progress_parent.h"

#include "platform/windows/com/late_bound_object.h"

namespace prot {

namespace {

class HostProgressParent : public ProgressParent {
public:
    explicit HostProgressParent(IDispatch* object) : object_(ComPtr<IDispatch>::share(object), "poParent") {}

    void gRefresh() override { object_.call("gRefresh", {}); }

    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override {
        // By reference, as the parameters of a host's procedure are when it does not say otherwise.
        long row = lZeile, end = lLetzte;
        object_.call("gSetFortschritt", {reference(row), reference(end)});
    }

private:
    LateBoundObject object_;
};

}  // namespace

std::unique_ptr<ProgressParent> host_progress_parent(IDispatch* object) {
    return object ? std::make_unique<HostProgressParent>(object) : nullptr;
}

}  // namespace prot
