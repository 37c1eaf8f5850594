// The files that a document was read from and saved to, so that nobody else's changes in them are overwritten. A
// document that was made here has one too, which measures the texts in it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"
#include "svg/Files.h"

namespace easel::svg {

class KnownFiles : public model::Origin {
  public:
    // Neither is part of what the document came from, hence they are never too late
    void noteRead(const std::string& path, const FileStamp& stamp) const;
    void noteSaved(const std::string& path, const FileStamp& stamp, const std::vector<std::string_view>& pieces) const;
    /// What is known of the file, as a line for noteToldOf, also of another document and another run; empty for
    /// nothing.
    [[nodiscard]] std::string toldOf(const std::string& path) const;
    void noteToldOf(const std::string& path, const std::string& told) const;
    /// Throws FileError when the file is known, there, and not what it was. One that was only touched is unchanged.
    void requireUnchanged(const std::string& path) const;

    void measure(model::Document& document) const override;

  protected:
    /// Whether these bytes are what the document was read from.
    [[nodiscard]] virtual bool isWhatWasRead(std::string_view /*bytes*/) const { return false; }

  private:
    struct Known {
        FileStamp stamp;
        std::optional<std::uint32_t> checksum; ///< of what was saved; none where the file has only been read
    };

    mutable std::map<std::string, Known> files_; // by path without links
};

} // namespace easel::svg
