// Runs expat over the text and hands its elements to the builder. Exceptions must not pass through expat, so the first
// one stops the parser and is thrown again outside. External entities are never opened, for nobody asks expat to.
#include "svg/Reader.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

#include "svg/Builder.h"
#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Names.h"
#include "svg/Packing.h"

namespace easel::svg {

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 20;

bool isUtf8Name(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) c = static_cast<char>(c | 0x20);
    return lower == "utf-8" || lower == "us-ascii";
}

Encoding encodingOf(std::string_view bytes) {
    const std::string_view two = bytes.substr(0, 2);
    if (two == "\xFE\xFF" || two == std::string_view("\0<", 2)) return Encoding::Utf16Big;
    if (two == "\xFF\xFE" || two == std::string_view("<\0", 2)) return Encoding::Utf16Little;
    return Encoding::Utf8;
}

/// One run of expat over the text.
class Reading {
  public:
    Reading(std::shared_ptr<Source> source, const Warn& warn)
        : source_(std::move(source)),
          parser_(XML_ParserCreateNS(source_->encoding == Encoding::Utf8 ? nullptr : "UTF-8", kNamespaceEnd)),
          builder_(source_, [this, &warn](const std::string& what) {
              if (warn) warn(currentPlace() + what);
          }) {
        if (!parser_) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), start, end);
        XML_SetStartNamespaceDeclHandler(parser_.get(), bindPrefix);
        XML_SetXmlDeclHandler(parser_.get(), declare);
        XML_SetAttlistDeclHandler(parser_.get(), addDefault);
        XML_SetProcessingInstructionHandler(parser_.get(), process);
    }

    std::unique_ptr<model::Document> run() {
        std::string_view rest = source_->text;
        bool last = false;
        while (!last) {
            const std::size_t size = std::min(rest.size(), kChunk);
            last = size == rest.size();
            if (XML_Parse(parser_.get(), rest.data(), static_cast<int>(size), last) != XML_STATUS_OK) fail();
            rest.remove_prefix(size);
        }
        parser_.reset(); // what it holds is not needed while the document is sorted
        return builder_.finish();
    }

  private:
    struct FreeParser {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    template <class Work> static void guarded(void* data, Work work) {
        Reading& self = *static_cast<Reading*>(data);
        if (self.error_) return; // expat may still report what it has already seen
        try {
            work(self);
        } catch (...) {
            self.error_ = std::current_exception();
            self.place_ = self.currentPlace(); // stopping moves on
            XML_StopParser(self.parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL start(void* data, const XML_Char* name, const XML_Char** attributes) {
        guarded(data, [&](Reading& self) { self.builder_.startElement(name, Attributes(attributes), self.bytes()); });
    }
    static void XMLCALL end(void* data, const XML_Char*) {
        guarded(data, [](Reading& self) { self.builder_.endElement(self.bytes()); });
    }
    static void XMLCALL bindPrefix(void* data, const XML_Char* prefix, const XML_Char* uri) {
        if (!prefix || !uri) return;
        guarded(data, [&](Reading& self) { self.builder_.bindPrefix(prefix, uri); });
    }
    static void XMLCALL declare(void* data, const XML_Char*, const XML_Char* encoding, int) {
        Reading& self = *static_cast<Reading*>(data);
        if (!encoding || self.source_->encoding != Encoding::Utf8 || isUtf8Name(encoding)) return;
        self.source_->encoding = Encoding::OtherAscii;
    }

    static void XMLCALL addDefault(void* data, const XML_Char* tag, const XML_Char* attribute, const XML_Char*,
                                   const XML_Char* value, int) {
        if (value) guarded(data, [&](Reading& self) { self.builder_.addDefault(tag, attribute, value); });
    }
    static void XMLCALL process(void* data, const XML_Char* target, const XML_Char*) {
        if (std::string_view(target) != "xml-stylesheet") return;
        guarded(data, [](Reading& self) { self.builder_.linkSheet(); });
    }

    /// The tag at hand. What stands in an entity is reported at the place of the reference to it. The end of an element
    /// that ends itself has no bytes: a reference may follow right there, and is none of its business.
    [[nodiscard]] TagBytes bytes() const {
        const auto begin = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
        const auto count = static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get()));
        const bool inEntity = count > 0 && source_->text[begin] == '&';
        return {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(begin + count), inEntity};
    }

    [[nodiscard]] std::string currentPlace() const {
        return source_->fileName + ':' + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ':' +
               std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1) + ": ";
    }

    [[noreturn]] void fail() const {
        if (!error_) throw FileError(currentPlace() + XML_ErrorString(XML_GetErrorCode(parser_.get())));
        try {
            std::rethrow_exception(error_);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            throw FileError(place_ + error.what());
        }
    }

    std::shared_ptr<Source> source_;
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    Builder builder_;
    std::exception_ptr error_;
    std::string place_;
};

} // namespace

std::unique_ptr<model::Document> open(const std::string& path, const Warn& warn) {
    FileStamp stamp;
    std::string bytes = readFile(path, &stamp);
    auto document = read(std::move(bytes), path, warn);
    dynamic_cast<const KnownFiles&>(*document->origin).note(path, stamp);
    return document;
}

std::unique_ptr<model::Document> read(std::string bytes, const std::string& fileName, const Warn& warn) {
    auto source = std::make_shared<Source>();
    source->fileName = fileName;
    source->text = std::move(bytes);
    try {
        source->packed = isPacked(source->text);
        if (source->packed) {
            std::string unpacked = unpack(source->text);
            source->raw = std::exchange(source->text, std::move(unpacked));
        }
        source->encoding = encodingOf(source->text);
        if (source->encoding != Encoding::Utf8) {
            std::string recoded = fromUtf16(source->text, source->encoding == Encoding::Utf16Big);
            std::string coded = std::exchange(source->text, std::move(recoded));
            if (!source->packed) source->raw = std::move(coded);
        }
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw FileError(fileName + ": " + error.what());
    }
    return Reading(std::move(source), warn).run();
}

} // namespace easel::svg
