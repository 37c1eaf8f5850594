// The files that a document was read from and saved to, so that nobody else's changes in them are overwritten.
#pragma once

#include <map>
#include <string>

#include "model/Document.h"
#include "svg/Files.h"

namespace easel::svg {

class KnownFiles : public model::Origin {
  public:
    /// Notes the file as it is now. Not part of what the document came from, hence never too late.
    void note(const std::string& path) const;
    void note(const std::string& path, const FileStamp& stamp) const;
    /// Throws FileError when the file is known, there, and not what it was. One that was only touched is unchanged.
    void requireUnchanged(const std::string& path) const;

  protected:
    /// Whether these bytes are what the document was read from.
    [[nodiscard]] virtual bool isWhatWasRead(std::string_view /*bytes*/) const { return false; }

  private:
    mutable std::map<std::string, FileStamp> stamps_; // by path without links
};

} // namespace easel::svg
