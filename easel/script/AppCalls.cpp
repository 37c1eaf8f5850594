// print and assert, and the app object: documents, tools, menus and time, plug-ins, start and end.
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <map>

#include "script/Calls.h"

namespace easel::script {

namespace {

void print(Host& host, const Variadic& rest) {
    const char* gap = "";
    for (const AnyAsText& value : rest.values) {
        host.out << gap << value.text;
        gap = " ";
    }
    errno = 0;
    if (!(host.out << std::endl)) throw session::Error(std::strerror(errno != 0 ? errno : EIO));
}

void assertThat(Host& /*host*/, Truthy condition, const std::optional<AnyAsText>& text) {
    if (!condition.holds) throw session::Error("failed" + (text ? ": " + text->text : ""));
}

// Documents

Document newDocument(Host& host, Positive width, Positive height) {
    return {&host.session.newDocument(width.value, height.value)};
}

Document open(Host& host, const std::string& path) { return {&host.session.open(path)}; }

struct SaveOptions {
    bool force = false;
};

void read(const Value& value, SaveOptions& slot) {
    static constexpr std::array<std::string_view, 1> kNames{"force"};
    if (!duk_is_object(value.engine(), value.index())) value.fail("an object like {force: true}");
    value.mustHaveOnly(kNames);
    slot.force = value.member<std::optional<bool>>("force").value_or(false);
}

void save(Host& host, const std::string& path, std::optional<SaveOptions> options) {
    host.session.save(path, options.value_or(SaveOptions{}).force);
}

struct PictureOptions {
    session::Overlay overlay = session::Overlay::None;
};

void read(const Value& value, PictureOptions& slot) {
    static constexpr std::array<std::string_view, 1> kNames{"annotations"};
    if (!duk_is_object(value.engine(), value.index())) value.fail("an object like {annotations: true}");
    value.mustHaveOnly(kNames);
    if (value.member<std::optional<bool>>("annotations").value_or(false)) slot.overlay = session::Overlay::Annotations;
}

void exportPng(Host& host, const std::string& path, std::optional<Positive> scale,
               std::optional<PictureOptions> options) {
    host.session.exportPng(path, scale.value_or(Positive{}).value, options.value_or(PictureOptions{}).overlay);
}

void exportSvg(Host& host, const std::string& path) { host.session.exportSvg(path); }

void exportPdf(Host& host, const std::string& path, std::optional<Positive> scale) {
    host.session.exportPdf(path, scale.value_or(Positive{}).value);
}

std::vector<AnnotationRecord> annotations(Host& host) {
    host.session.annotations.update();
    std::vector<AnnotationRecord> records;
    for (const auto* annotator : host.session.annotations.all())
        for (const model::Mark& mark : annotator->marks) records.push_back({annotator->name, mark});
    return records;
}

void close(Host& host) {
    static_cast<void>(host.session.documents.needFront());
    host.session.close();
}

std::optional<Document> frontDocument(Host& host) {
    auto* const document = host.session.document();
    return document ? std::optional(Document{document}) : std::nullopt;
}

void setFrontDocument(Host& host, const Document& value) { host.session.bringToFront(*value); }

std::vector<Document> documents(Host& host) {
    std::vector<Document> open;
    while (model::Document* const next = host.session.documents.at(open.size())) open.push_back({next});
    return open;
}

// Tools

session::Tool& toolTitled(Host& host, const std::string& title) {
    auto* const tool = host.session.toolbox.findByTitle(title);
    if (!tool) throw session::Error("no tool has the title \"" + title + '"');
    return *tool;
}

std::vector<std::string> tools(Host& host) {
    std::vector<std::string> titles;
    for (const auto* tool : host.session.toolbox.all()) titles.push_back(tool->title);
    return titles;
}

/// The groups, of slots, of titles, each in the order in which it was opened.
std::vector<std::vector<std::vector<std::string>>> toolbox(Host& host) {
    std::map<std::int16_t, std::map<std::int16_t, std::vector<std::string>>> byNumber;
    for (const auto* tool : host.session.toolbox.all()) byNumber[tool->group][tool->toolset].push_back(tool->title);
    std::vector<std::vector<std::vector<std::string>>> groups;
    for (const auto& [group, slots] : byNumber) {
        groups.emplace_back();
        for (const auto& [slot, titles] : slots) groups.back().push_back(titles);
    }
    return groups;
}

std::string currentTool(Host& host) { return host.session.toolbox.current()->title; }

void selectTool(Host& host, const std::string& title) { host.session.input.selectTool(toolTitled(host, title)); }

void editTool(Host& host, const std::string& title) { host.session.input.editTool(toolTitled(host, title)); }

std::variant<std::int32_t, CursorImageRecord> cursor(Host& host) {
    const StageCursor& shown = host.session.screen.cursor;
    const auto* const owner = host.session.plugins.find(shown.plugin);
    if (!owner) return shown.number;
    return CursorImageRecord{.plugin = owner->name,
                             .resource = shown.resource,
                             .hotSpot = {shown.hotSpot.h, shown.hotSpot.v},
                             .scale = shown.scale};
}

double displayScale(Host& host) { return host.session.screen.displayScale; }

void setDisplayScale(Host& host, Positive scale) { host.session.screen.displayScale = scale.value; }

// Menus and time

MenuItemRecord itemRecord(const session::MenuItem& item) {
    return {.text = item.text,
            .enabled = session::Menus::isEnabled(item),
            .checked = item.checked,
            .divider = item.isDivider(),
            .opens = item.opens ? std::optional(item.opens->name) : std::nullopt};
}

std::vector<MenuGroupRecord> menus(Host& host) {
    host.session.input.updateMenus();
    std::vector<MenuGroupRecord> groups;
    for (const auto* group : host.session.menus.groups()) {
        MenuGroupRecord record{.group = group->name, .items = {}};
        for (const session::MenuChild& child : group->children) {
            const auto* const item = child.item ? child.item : child.group->opener;
            if (item) record.items.push_back(itemRecord(*item));
        }
        if (!record.items.empty()) groups.push_back(record);
    }
    return groups;
}

void chooseMenu(Host& host, const std::string& text, const std::optional<std::string>& group,
                const std::optional<std::size_t>& number) {
    if (number == 0U) throw BadArgument("argument 3 (number) counts from 1");
    host.session.input.chooseMenu(text, group.value_or(""), number.value_or(1));
}

void runFor(Host& host, Positive seconds) { host.session.timers.runFor(seconds.value); }

// Whose the application is, and its browser

double hostVersion(Host& host) { return host.session.identity.majorVersion; }

void setHostVersion(Host& host, double version) {
    if (version != std::floor(version) || version < 1 || version > 1000)
        throw BadArgument("the value must be a whole number from 1 to 1000");
    host.session.identity.majorVersion = static_cast<std::int32_t>(version);
}

std::string userName(Host& host) { return host.session.identity.userName; }
void setUserName(Host& host, const std::string& name) { host.session.identity.userName = name; }
std::string userOrganization(Host& host) { return host.session.identity.userOrganization; }
void setUserOrganization(Host& host, const std::string& name) { host.session.identity.userOrganization = name; }
std::vector<std::string> openedURLs(Host& host) { return host.session.browser.opened; }

// Settings of the user

double brightness(Host& host) { return host.session.screen.brightness(); }

void setBrightness(Host& host, double value) {
    if (value < 0 || value > 1) throw BadArgument("the value must lie between 0 (dark) and 1 (light)");
    host.session.screen.setBrightness(value);
}

bool snapToPoint(Host& host) { return host.session.pointer.snapping.toPoint; }
void setSnapToPoint(Host& host, Truthy on) { host.session.pointer.snapping.toPoint = on.holds; }
double gridSpacing(Host& host) { return host.session.pointer.snapping.gridSpacing; }
void setGridSpacing(Host& host, Positive spacing) { host.session.pointer.snapping.gridSpacing = spacing.value; }
std::vector<double> axes(Host& host) { return host.session.toolbox.axes(); }
bool axisGrid(Host& host) { return host.session.pointer.snapping.axisGrid; }
void setAxisGrid(Host& host, Truthy on) { host.session.pointer.snapping.axisGrid = on.holds; }
bool snapToAxisGrid(Host& host) { return host.session.pointer.snapping.toAxisGrid; }
void setSnapToAxisGrid(Host& host, Truthy on) { host.session.pointer.snapping.toAxisGrid = on.holds; }

constexpr double kMegabyte = 1 << 20;

double undoMegabytes(Host& host) { return static_cast<double>(host.session.documents.historyLimit()) / kMegabyte; }
void setUndoMegabytes(Host& host, double value) {
    constexpr double kMost = 1e6;
    if (!(value >= 0 && value <= kMost)) throw BadArgument("the value must lie between 0 and 1000000");
    host.session.documents.setHistoryLimit(static_cast<std::size_t>(value * kMegabyte));
}

std::string clipboard(Host& host) { return host.session.clipboard.text(); }
void setClipboard(Host& host, std::string svg) { host.session.clipboard.setText(std::move(svg)); }

// Plug-ins

std::vector<PluginRecord> plugins(Host& host) {
    std::vector<PluginRecord> records;
    for (const auto* plugin : host.session.plugins.all())
        records.push_back({plugin->name, plugin->fileName, plugin->started, plugin->broken});
    return records;
}

session::Plugin& pluginNamed(Host& host, const std::string& name) {
    for (auto* plugin : host.session.plugins.all()) {
        if (plugin->name != name) continue;
        if (!plugin->started) throw session::Error("the plug-in \"" + name + "\" is not running");
        return *plugin;
    }
    throw session::Error("no plug-in has the name \"" + name + '"');
}

std::int32_t sendMessage(Host& host, const std::string& name, const std::string& caller, const std::string& selector) {
    // A receiver may reply into fields behind the head, so there is room for them.
    struct {
        SPMessageData head;
        std::array<std::uint64_t, 512> fields;
    } record{};
    return host.session.messenger.send(pluginNamed(host, name), caller.c_str(), selector.c_str(), record.head);
}

void reload(Host& host, const std::string& name) { host.session.reload(pluginNamed(host, name)); }

void notify(Host& host, const std::string& type) { host.session.notifiers.raise(type); }

// Start and end

void start(Host& host) {
    std::string declined;
    for (const std::string& line : host.session.start()) declined += (declined.empty() ? "" : "; ") + line;
    if (!declined.empty()) throw session::Error(declined);
}

void quit(Host& host) { host.session.quit(); }

std::vector<std::string> reports(Host& host) { return host.session.reports.lines(); }

constexpr Row kGlobals[] = {
    method<print>("print", "values"),
    method<assertThat>("assert", "condition, text"),
};

constexpr Row kApp[] = {
    method<newDocument>("app.newDocument", "width, height"),
    method<open>("app.open", "path"),
    method<save>("app.save", "path, options"),
    method<exportPng>("app.exportPNG", "path, scale, options"),
    method<exportPdf>("app.exportPDF", "path, scale"),
    method<exportSvg>("app.exportSVG", "path"),
    method<close>("app.close", ""),
    property<frontDocument, setFrontDocument>("app.document"),
    property<documents>("app.documents"),
    property<annotations>("app.annotations"),
    property<tools>("app.tools"),
    property<toolbox>("app.toolbox"),
    property<currentTool>("app.currentTool"),
    method<selectTool>("app.selectTool", "title"),
    method<editTool>("app.editTool", "title"),
    property<cursor>("app.cursor"),
    property<displayScale, setDisplayScale>("app.displayScale"),
    property<menus>("app.menus"),
    method<chooseMenu>("app.chooseMenu", "text, group, number"),
    method<runFor>("app.runFor", "seconds"),
    property<hostVersion, setHostVersion>("app.hostVersion"),
    property<userName, setUserName>("app.userName"),
    property<userOrganization, setUserOrganization>("app.userOrganization"),
    property<openedURLs>("app.openedURLs"),
    property<brightness, setBrightness>("app.brightness"),
    property<snapToPoint, setSnapToPoint>("app.snapToPoint"),
    property<gridSpacing, setGridSpacing>("app.gridSpacing"),
    property<axes>("app.axes"),
    property<axisGrid, setAxisGrid>("app.axisGrid"),
    property<snapToAxisGrid, setSnapToAxisGrid>("app.snapToAxisGrid"),
    property<undoMegabytes, setUndoMegabytes>("app.undoMegabytes"),
    property<clipboard, setClipboard>("app.clipboard"),
    property<plugins>("app.plugins"),
    method<reload>("app.reload", "plugin"),
    method<sendMessage>("app.sendMessage", "plugin, caller, selector"),
    method<notify>("app.notify", "type"),
    method<start>("app.start", ""),
    method<quit>("app.quit", ""),
    property<reports>("app.reports"),
};

} // namespace

std::span<const Row> globalRows() { return kGlobals; }

std::span<const Row> appRows() { return kApp; }

} // namespace easel::script
