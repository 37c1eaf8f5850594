// Tests that play scripts in a session of their own.
#pragma once

#include <boost/algorithm/string/erase.hpp>

#include <sstream>

#include "script/Script.h"
#include "session/app/Session.h"
#include "support/Folder.h"

namespace desk {

class Playing : public testing::Test {
  protected:
    /// Plays a script; answers what it printed and, behind that, the error without the file's name.
    std::string play(const std::string& source) {
        const std::string file = folder.write("script.js", source);
        std::ostringstream out;
        const std::string error = errorOf<easel::script::ScriptError>([&] { easel::script::run(session, file, out); });
        EXPECT_EQ(error.rfind(error.empty() ? "" : file + ":", 0), 0U) << error;
        return boost::erase_all_copy(out.str() + error, file + ":");
    }

    Folder folder;
    easel::session::Session session;
};

} // namespace desk
