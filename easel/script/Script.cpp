// The engine of one script: set up, run, and its last error put into words.
#include "script/Script.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "script/Calls.h"
#include "script/DialogCalls.h"
#include "script/Text.h"

namespace easel::script {

namespace {

/// What the engine carries along. Set before the engine runs, since a jump out of it skips destructors.
struct Running : Host {
    std::string file; ///< in the engine's encoding, as everything that it is given
    std::string source;
    bool compiled = false;
    int throwLine = 0; ///< of the script, where something was thrown last; 0: nowhere
    int callLine = 0;  ///< ... and where the function was called that threw; 0: it was no function
};

std::string contentOf(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    std::string content;
    std::array<char, 65536> buffer{};
    if (file)
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get()))
            content.append(buffer.data(), count);
    if (!file || std::ferror(file.get()) != 0) throw ScriptError(path + ": cannot be read: " + std::strerror(errno));
    return content;
}

/// Whether the member "fileName" of the object on top names the script, and not code that the script made from text.
bool isFromScript(duk_context* engine) {
    duk_get_prop_string(engine, -1, "fileName");
    const char* const file = duk_get_string(engine, -1);
    const bool same = file && static_cast<Running&>(hostOf(engine)).file == file;
    duk_pop(engine);
    return same;
}

/// Called by the engine with all that is thrown. Errors know their line, but a script may throw anything.
duk_ret_t noteThrow(duk_context* engine) {
    std::array<int, 2> lines{};
    std::size_t found = 0;
    for (duk_int_t level = -2; found < lines.size(); --level) {
        duk_inspect_callstack_entry(engine, level);
        if (!duk_is_object(engine, -1)) break;
        duk_get_prop_string(engine, -1, "function");
        const bool fromScript = duk_is_ecmascript_function(engine, -1) && isFromScript(engine);
        duk_pop(engine);
        duk_get_prop_string(engine, -1, "lineNumber");
        if (fromScript) lines[found++] = duk_get_int(engine, -1);
        duk_pop_2(engine);
    }
    auto& running = static_cast<Running&>(hostOf(engine));
    running.throwLine = lines[0];
    running.callLine = lines[1];
    duk_dup(engine, 0);
    return 1;
}

void addObject(duk_context* engine, const char* name, std::span<const Row> rows, std::span<const Row> more = {}) {
    duk_push_object(engine);
    define(engine, rows);
    define(engine, more);
    duk_freeze(engine, -1);
    duk_put_global_string(engine, name);
}

template <class... Rows> void addPrototype(duk_context* engine, Kind kind, Rows... rows) {
    duk_push_object(engine);
    (define(engine, rows), ...);
    duk_freeze(engine, -1);
    setPrototype(engine, kind);
}

/// Everything that the engine does for a script, in one protected call.
duk_ret_t play(duk_context* engine, void* /*unused*/) {
    auto& running = static_cast<Running&>(hostOf(engine));
    keepErrorConstructors(engine);
    duk_get_global_string(engine, "Duktape");
    duk_push_c_function(engine, noteThrow, 1);
    duk_put_prop_string(engine, -2, "errThrow");
    duk_push_global_object(engine);
    duk_del_prop_string(engine, -1, "Duktape"); // the engine's own tools are no part of the script language
    define(engine, globalRows());
    addObject(engine, "app", appRows(), dialogAppRows());
    addObject(engine, "mouse", mouseRows());
    addObject(engine, "keys", keysRows());
    addPrototype(engine, Kind::Document, documentRows(), arrangeRows());
    addPrototype(engine, Kind::View, viewRows());
    addPrototype(engine, Kind::Layer, layerRows());
    addPrototype(engine, Kind::Art, artRows());

    // Strict code, in which a misspelt variable or member that is assigned to is an error.
    duk_push_lstring(engine, running.file.data(), running.file.size());
    duk_compile_lstring_filename(engine, DUK_COMPILE_STRICT, running.source.data(), running.source.size());
    running.compiled = true;
    duk_call(engine, 0);
    return 1;
}

duk_ret_t explain(duk_context* engine, void* /*unused*/) { // thrown value -> its line or 0, its text
    duk_push_int(engine, 0);
    duk_dup(engine, -2);
    if (!duk_is_error(engine, -1)) {
        duk_to_string(engine, -1);
        return 2;
    }
    if (isFromScript(engine)) {
        duk_get_prop_string(engine, -1, "lineNumber");
        duk_replace(engine, -3);
    }
    duk_get_prop_string(engine, -1, "message");
    duk_remove(engine, duk_get_length(engine, -1) == 0 ? -1 : -2); // without a message its name has to do
    duk_to_string(engine, -1);
    return 2;
}

/// The thrown value on top of the stack as one line.
std::string lineAbout(duk_context* engine, const std::string& path) {
    const auto& running = static_cast<Running&>(hostOf(engine));
    int line = 0;
    std::string text = "an error that cannot be told";
    if (duk_safe_call(engine, explain, nullptr, 1, 2) == DUK_EXEC_SUCCESS) {
        line = duk_get_int(engine, -2);
        const char* const said = duk_get_string(engine, -1);
        text = fromEngine(said).value_or(said);
    }
    if (line == 0) line = running.throwLine;
    const std::size_t said = text.rfind(" (line ");
    if (!running.compiled && said != text.npos) {
        const bool isText = text.rfind("source decode", 0) != 0;
        text = text.substr(0, said) + (isText ? " (scripts are JavaScript ES5: no let, const, => or class)" : "");
    }
    // An error may have been made elsewhere than it was thrown.
    else if (line == running.throwLine && running.callLine != 0)
        text += " (called from " + path + ':' + std::to_string(running.callLine) + ')';
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20; }, ' ');
    return path + (line == 0 ? "" : ":" + std::to_string(line)) + ": " + text;
}

} // namespace

void runSource(session::Session& session, std::string source, const std::string& name, std::ostream& out) {
    if (source.compare(0, 2, "#!") == 0) source.replace(0, 2, "//"); // for the shell
    Running running{{session, out}, toEngine(name), std::move(source)};
    const std::unique_ptr<duk_context, void (*)(duk_context*)> engine(
        duk_create_heap(nullptr, nullptr, nullptr, static_cast<Host*>(&running), nullptr), duk_destroy_heap);
    if (!engine) throw std::bad_alloc();
    const KeptFaces kept(session);
    if (duk_safe_call(engine.get(), play, nullptr, 0, 1) != DUK_EXEC_SUCCESS)
        throw ScriptError(lineAbout(engine.get(), name));
}

void run(session::Session& session, const std::string& path, std::ostream& out) {
    runSource(session, contentOf(path), path, out);
}

} // namespace easel::script
