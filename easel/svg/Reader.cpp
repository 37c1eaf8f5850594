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

constexpr std::size_t kChunk = std::size_t{1} << 18; // expat keeps a copy of each piece
constexpr std::size_t kSheetsBegunAgainFor = 8;

bool isUtf8Name(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) c = static_cast<char>(c | 0x20);
    return lower == "utf-8";
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
    /// `isPart`: the style sheets are known.
    Reading(std::shared_ptr<Source> source, const std::vector<std::string>& sheets, bool isPart)
        : source_(std::move(source)),
          parser_(XML_ParserCreateNS(source_->encoding == Encoding::Utf8 ? nullptr : "UTF-8", kNamespaceEnd)),
          builder_(
              source_, [this](const std::string& what) { warnings_.push_back(currentPlace() + what); }, sheets),
          sheetCount_(sheets.size()),
          isPart_(isPart) {
        if (!parser_) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), start, end);
        XML_SetStartNamespaceDeclHandler(parser_.get(), bindPrefix);
        XML_SetXmlDeclHandler(parser_.get(), declare);
        XML_SetAttlistDeclHandler(parser_.get(), addDefault);
        XML_SetProcessingInstructionHandler(parser_.get(), process);
    }

    /// Null when it has come upon style sheets that were not known, and has to be done again.
    std::unique_ptr<model::Document> run(const Progress& progress) {
        std::string_view rest = source_->text;
        bool last = false;
        while (!last) {
            const std::size_t size = std::min(rest.size(), kChunk);
            last = size == rest.size();
            if (XML_Parse(parser_.get(), rest.data(), static_cast<int>(size), last) != XML_STATUS_OK && !isUseless())
                fail();
            if (isUseless()) return nullptr;
            rest.remove_prefix(size);
            const auto left = static_cast<double>(rest.size());
            if (progress) progress(last ? 1 : 1 - left / static_cast<double>(source_->text.size()));
        }
        parser_.reset(); // what it holds is not needed while the document is sorted
        if (hasNewSheets()) return nullptr;
        return builder_.finish();
    }

    [[nodiscard]] const std::vector<std::string>& sheets() const { return builder_.sheets(); }
    [[nodiscard]] const std::vector<std::string>& warnings() const { return warnings_; }

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
        guarded(data, [&](Reading& self) {
            self.builder_.startElement(name, Attributes(attributes), self.bytes());
            if (self.readsText()) XML_SetCharacterDataHandler(self.parser_.get(), addText);
        });
    }
    static void XMLCALL end(void* data, const XML_Char*) {
        guarded(data, [](Reading& self) {
            const bool wasInSheet = self.builder_.isInSheet();
            const bool readText = self.readsText();
            self.builder_.endElement(self.bytes());
            if (readText && !self.readsText()) XML_SetCharacterDataHandler(self.parser_.get(), nullptr);
            if (wasInSheet && self.isUseless()) XML_StopParser(self.parser_.get(), XML_FALSE);
        });
    }
    static void XMLCALL addText(void* data, const XML_Char* text, int size) {
        guarded(data, [&](Reading& self) {
            self.builder_.addCharacters(std::string_view(text, static_cast<std::size_t>(size)));
        });
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

    [[nodiscard]] bool readsText() const { return builder_.isInSheet() || builder_.isInText(); }
    [[nodiscard]] bool hasNewSheets() const { return !isPart_ && sheets().size() > sheetCount_; }
    /// Most sheets come first: then nothing is lost by beginning again at once.
    [[nodiscard]] bool isUseless() const {
        return hasNewSheets() && sheetCount_ < kSheetsBegunAgainFor && !builder_.hasRead() && !error_;
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
    std::size_t sheetCount_;
    bool isPart_;
    std::vector<std::string> warnings_;
    std::exception_ptr error_;
    std::string place_;
};

/// A source that nothing has been read from yet.
std::shared_ptr<Source> unread(Source& source) {
    auto again = std::make_shared<Source>();
    again->fileName = source.fileName;
    again->warn = source.warn;
    again->raw = std::move(source.raw);
    again->packed = source.packed;
    again->encoding = source.encoding == Encoding::OtherAscii ? Encoding::Utf8 : source.encoding;
    again->text = std::move(source.text);
    return again;
}

std::unique_ptr<model::Document> readFrom(std::string bytes, const std::string& fileName, const Source* whole,
                                          const Warn& warn, const Progress& progress) {
    auto source = std::make_shared<Source>();
    source->fileName = fileName;
    source->warn = warn;
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
    if (whole) source->takeSheets(*whole);
    std::vector<std::string> sheets;
    for (;;) {
        Reading reading(source, sheets, whole != nullptr);
        const auto tell = [&] {
            for (const std::string& line : reading.warnings())
                if (warn) warn(line);
        };
        try {
            auto document = reading.run(progress);
            if (document) tell();
            if (document) return document;
        } catch (...) {
            tell();
            throw;
        }
        sheets = reading.sheets();
        source = unread(*source);
    }
}

} // namespace

std::unique_ptr<model::Document> open(const std::string& path, const Warn& warn, const Progress& progress) {
    FileStamp stamp;
    std::string bytes = readFile(path, &stamp);
    auto document = read(std::move(bytes), path, warn, progress);
    dynamic_cast<const KnownFiles&>(*document->origin).noteRead(path, stamp);
    return document;
}

std::unique_ptr<model::Document> read(std::string bytes, const std::string& fileName, const Warn& warn,
                                      const Progress& progress) {
    return readFrom(std::move(bytes), fileName, nullptr, warn, progress);
}

std::unique_ptr<model::Document> readPart(std::string bytes, const std::string& fileName, const Source& whole) {
    return readFrom(std::move(bytes), fileName, &whole, {}, {});
}

} // namespace easel::svg
