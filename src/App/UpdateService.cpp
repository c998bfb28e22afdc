#include "App/UpdateService.h"

namespace quillbox {
namespace {

/// A system that has nothing to update this program with.
class NoUpdateService : public UpdateService {
public:
    void start() override { }
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }
    void checkForUpdates() override { }
};

} // namespace

std::unique_ptr<UpdateService> makeUpdateService()
{
    return std::make_unique<NoUpdateService>();
}

} // namespace quillbox
