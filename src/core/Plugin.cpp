// The phases of life over the implementation's own.
#include "core/Plugin.h"

#include <utility>

#include "core/Dispatcher.h"
#include "core/Illustrator.h"
#include "core/Tool.h"
#include "plugin/BasePlugin.h"

namespace kzo::core {

Plugin* Plugin::instance_ = nullptr;

namespace {

constexpr std::int32_t firstStatus = 1000;
constexpr std::int32_t lastStatus = 1009;

/// The framework's own failures are numbered in ones inside and in tens outside.
std::int32_t phaseAnswer(std::int32_t status) {
    return status >= firstStatus && status <= lastStatus ? firstStatus + (status - firstStatus) * 10 : 0;
}

/// Does its work on the way out, also by an exception. The work must not throw.
template <class Work> class Finally {
  public:
    explicit Finally(Work work) : work_(std::move(work)) {}
    ~Finally() { work_(); }
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;

  private:
    Work work_;
};

} // namespace

Plugin::Plugin(SPPlugin* plugin, const std::string& name)
    : impl_(std::make_unique<plugin::BasePlugin>(plugin, name)),
      dispatcher_(std::make_unique<Dispatcher>(impl_->dispatcher())) {
    instance_ = this;
}

Plugin::~Plugin() { instance_ = nullptr; }

Plugin* Plugin::instance() { return instance_; }

// Identity

SPPlugin* Plugin::spPluginRef() const { return impl_->spPluginRef(); }
const std::string& Plugin::name() const { return impl_->name(); }
void Plugin::setName(const std::string& name) { impl_->setName(name); }

// Parts

Tool Plugin::currentTool() const { return Tool(impl_->currentTool()); }
bool Plugin::setUndoKind(UndoContext context) { return plugin::BasePlugin::setUndoKind(context); }

// Phases

template <class Work> void Plugin::Phase::run(Work work) {
    if (running || finished) return;
    running = true;
    // Also on the way out by an exception: a phase is never begun twice.
    const Finally ending([this] { *this = {.running = false, .finished = true}; });
    work();
}

std::int32_t Plugin::__startup() {
    std::int32_t status = 0;
    startup_.run([&] {
        status = impl_->startup();
        impl_->addPluginGroup();
        startupCallback_.run();
    });
    return phaseAnswer(status);
}

void Plugin::__postStartup() {
    postStartup_.run([&] { postStartupCallback_.run(); });
}

void Plugin::__preShutdown() {
    preShutdown_.run([&] { preShutdownCallback_.run(); });
}

std::int32_t Plugin::__shutdown() {
    constexpr std::int32_t shutdownFailed = 4000;
    std::int32_t status = 0;
    shutdown_.run([&] {
        // The framework's own shut-down follows also when the client's work throws.
        const Finally own([&] {
            dispatcher_.reset();
            Illustrator::__destroy();
            status = impl_->shutdown();
        });
        shutdownCallback_.run();
    });
    return status == shutdownFailed ? shutdownFailed : 0;
}

} // namespace kzo::core
