// A copy of unsaved work in a file of its own, so that a crash or a lost display costs at most some seconds of it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "session/documents/Documents.h"

namespace easel::app {

class Recovery {
  public:
    /// The folder for such copies: $XDG_STATE_HOME, else ~/.local/state, with easel/recovery in it.
    [[nodiscard]] static std::string defaultFolder();

    /// Makes the folder. Nothing is kept where that fails.
    explicit Recovery(std::string folder);
    ~Recovery(); ///< a copy stays until it is dropped: whoever ends the program may have saved nothing
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    /// Writes each drawing that has unsaved changes as it is, and drops the copies of others. Returns why it could not
    /// be, if so.
    std::string keep(session::Documents& documents);
    void drop(); ///< the work is saved, or nobody wants it

    struct Left {
        std::string copy;
        std::string path; ///< the file it belongs to; empty for none
        std::string told; ///< what was known of that file
    };
    /// Copies that programs left which run no more.
    [[nodiscard]] std::vector<Left> left() const;
    static void remove(const Left& left);

  private:
    /// A file of this program's, for one drawing.
    struct Copy {
        std::string file;
        int lock; ///< held as long as the program runs; -1 where that cannot be
    };
    void takeAnother();
    bool take(const std::string& copy);
    [[nodiscard]] bool isMine(const std::string& copy) const;
    void drop(std::size_t from);

    std::string folder_;
    std::vector<Copy> copies_;
};

} // namespace easel::app
