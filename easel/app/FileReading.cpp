// The reader's thread ends through an exception when nobody wants the document any more.
#include "app/FileReading.h"

#include <chrono>
#include <exception>
#include <new>
#include <utility>

#include "app/Watch.h"
#include "session/base/Error.h"
#include "svg/Reader.h"

namespace easel::app {

namespace {

class Ended : public std::exception {};

} // namespace

FileReading::FileReading(std::string path, session::Reports& reports)
    : path_(std::move(path)), reports_(reports), thread_([this] {
          try {
              promise_.set_value(read());
          } catch (...) {
              promise_.set_exception(std::current_exception());
          }
      }) {}

FileReading::~FileReading() {
    giveUp();
    if (thread_.joinable()) thread_.join();
}

std::unique_ptr<model::Document> FileReading::read() {
    // The document keeps the function and warns of what is found out later, in the window's thread.
    const auto reader = std::this_thread::get_id();
    const auto warn = [this, reader, &reports = reports_](const std::string& line) {
        if (std::this_thread::get_id() == reader)
            warnings_.push_back(line);
        else
            reports.add(session::Blame::UserData, line);
    };
    auto document = svg::open(path_, warn, [this](double share) {
        share_ = share;
        if (ends_) throw Ended();
    });
    reach_ = farthestReach(*document);
    return document;
}

bool FileReading::isDone(int milliseconds) const {
    return result_.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

std::unique_ptr<model::Document> FileReading::take() {
    thread_.join();
    for (const std::string& line : warnings_) reports_.add(session::Blame::UserData, line);
    try {
        return result_.get();
    } catch (const svg::FileError& error) {
        throw session::Error(error.what());
    } catch (const std::bad_alloc&) {
        throw session::Error(path_ + ": there is not enough memory to open it");
    }
}

} // namespace easel::app
