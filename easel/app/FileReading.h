// A drawing that is read while the window goes on: in a thread of its own, which makes a document that nobody else has.
#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "model/Document.h"
#include "session/base/Reports.h"

namespace easel::app {

class FileReading {
  public:
    /// Begins. What cannot be read of the file is reported when it is taken, and later.
    FileReading(std::string path, session::Reports& reports);
    ~FileReading(); ///< gives up what is not done
    FileReading(const FileReading&) = delete;
    FileReading& operator=(const FileReading&) = delete;

    void giveUp() { ends_ = true; } ///< it is done soon, with nothing to take
    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] double share() const { return share_; }  ///< of the file, from 0 to 1
    [[nodiscard]] bool isDone(int milliseconds = 0) const; ///< waits for it, but no longer than this
    /// The document, once it is done. Throws session::Error.
    [[nodiscard]] std::unique_ptr<model::Document> take();
    [[nodiscard]] double reach() const { return reach_; } ///< farthestReach of what was taken

  private:
    [[nodiscard]] std::unique_ptr<model::Document> read();

    std::string path_;
    session::Reports& reports_;
    std::atomic<bool> ends_ = false;
    std::atomic<double> share_ = 0;
    double reach_ = 0;                  ///< the thread's until it is done, as is the next
    std::vector<std::string> warnings_; ///< the thread's until it is done
    std::promise<std::unique_ptr<model::Document>> promise_;
    std::future<std::unique_ptr<model::Document>> result_ = promise_.get_future();
    std::thread thread_;
};

} // namespace easel::app
