// A copy of unsaved work in a file of its own, so that a crash or a lost display costs at most some seconds of it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "session/documents/Documents.h"
#include "svg/Descriptor.h"

namespace easel::app {

class Recovery {
  public:
    /// The folder for such copies: $XDG_STATE_HOME, else ~/.local/state, with easel/recovery in it.
    [[nodiscard]] static std::string defaultFolder();

    /// Makes the folder, which nobody else may read. Nothing is kept where that fails.
    explicit Recovery(std::string folder);
    ~Recovery(); ///< a copy stays until it is dropped: whoever ends the program may have saved nothing
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    /// Writes each drawing that has unsaved changes as it is, and drops the copies of others. Where one cannot be
    /// written, its copy from before stays, and the rest are written. Returns why, if so.
    std::string keep(session::Documents& documents);
    void dropSaved(const session::Documents& documents); ///< copies of drawings without unsaved changes
    void drop();                                         ///< the work is saved, or nobody wants it

    using Lock = std::shared_ptr<const svg::Descriptor>; ///< keeps other programs from a copy
    struct Left {
        std::string copy;
        std::string path; ///< the file it belongs to; empty for none
        std::string told; ///< what was known of that file
        Lock lock;
    };
    /// Copies that programs left which run no more, and that no other program asks about just now.
    [[nodiscard]] std::vector<Left> left() const;
    static void remove(const Left& left);
    /// It is the copy of this document from now on.
    void adopt(const Left& left, std::uint32_t document);

  private:
    struct Copy {
        std::string file;
        Lock lock;
        std::uint32_t document; ///< its number
    };
    [[nodiscard]] const Copy& copyOf(std::uint32_t document);
    void keep(session::Documents& documents, model::Document& drawing);
    [[nodiscard]] bool isMine(const std::string& copy) const;
    void removeStale() const;

    std::string folder_;
    std::vector<Copy> copies_;
};

} // namespace easel::app
