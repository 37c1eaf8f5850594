// Requests through libcurl: start, progress by the timer, and how they end.
#include "plugin/services/InternetGET.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <curl/curl.h>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "plugin/frame/BasePlugin.h"
#include "plugin/platform/Background.h"
#include "utils/Scope.h"

namespace kzo::plugin {

using core::InternetError;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// libcurl's side of one request.
struct InternetGET::Transfer {
    Transfer(const std::string& url, const Limits& limits) : most(limits.size) {
        if (!easy) return;
        curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
        curl_easy_setopt(easy, CURLOPT_MAXREDIRS, limits.redirects);
        curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.time.count()));
        // Refuses by the length that is announced; `take` by the one that comes.
        curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.size));
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        // One that is given up does not wait until its name is found.
        curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
        curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, message.data());
        curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &note);
        curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
        curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &take);
        curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    }
    ~Transfer() { curl_easy_cleanup(easy); }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// libcurl takes a reply that is cut within its head for a whole one without a body.
    static std::size_t note(const char* line, std::size_t, std::size_t count, void* self) {
        const std::string_view text(line, count);
        bool& ended = static_cast<Transfer*>(self)->headEnded;
        // Each reply of a chain has a head; what comes behind the end of the last one are trailers of its body.
        if (text.starts_with("HTTP/")) ended = false;
        if (text == "\r\n" || text == "\n") ended = true;
        return count;
    }

    static std::size_t take(const char* bytes, std::size_t, std::size_t count, void* self) {
        auto& transfer = *static_cast<Transfer*>(self);
        transfer.tooLarge = transfer.body.size() + count > transfer.most;
        if (transfer.tooLarge) return 0;
        transfer.body.append(bytes, count);
        return count;
    }

    [[nodiscard]] long info(CURLINFO what) const {
        long value = 0;
        curl_easy_getinfo(easy, what, &value);
        return value;
    }

    CURL* easy = curl_easy_init();
    std::array<char, CURL_ERROR_SIZE> message{};
    std::string body;
    std::size_t most;
    bool tooLarge = false;
    bool headEnded = false; ///< of the reply that came last
};

/// What is under way. The last to end takes the timer and libcurl's own things along.
class InternetGET::Transfers {
  public:
    static std::optional<Transfers>& all() {
        static std::optional<Transfers> transfers;
        return transfers;
    }

    Transfers() = default;
    ~Transfers() {
        if (timer_) stopTimer();
        curl_multi_cleanup(multi_);
    }
    Transfers(const Transfers&) = delete;
    Transfers& operator=(const Transfers&) = delete;

    /// Where libcurl, or the host with its timer, refuses, the request fails once whoever started it has returned.
    void add(InternetGET& request, bool inBackground) {
        const bool driven = multi_ && request.transfer_->easy && (!inBackground || startTimer());
        const bool accepted = driven && curl_multi_add_handle(multi_, request.transfer_->easy) == CURLM_OK;
        (accepted ? requests_ : refused_).push_back(&request);
    }

    void remove(InternetGET& request) {
        std::erase(refused_, &request);
        if (std::erase(requests_, &request) > 0) curl_multi_remove_handle(multi_, request.transfer_->easy);
    }

    [[nodiscard]] bool empty() const { return requests_.empty() && refused_.empty(); }

    /// One that was refused; null when there is none.
    [[nodiscard]] InternetGET* refused() const { return refused_.empty() ? nullptr : refused_.front(); }

    void move(milliseconds patience) const {
        int active = 0;
        curl_multi_poll(multi_, nullptr, 0, static_cast<int>(patience.count()), nullptr);
        curl_multi_perform(multi_, &active);
    }

    /// A request that has ended, and how; null when there is none.
    [[nodiscard]] std::pair<InternetGET*, CURLcode> ended() const {
        int left = 0;
        while (const CURLMsg* const message = curl_multi_info_read(multi_, &left)) {
            const auto request = std::find_if(requests_.begin(), requests_.end(), [&](const InternetGET* known) {
                return known->transfer_->easy == message->easy_handle;
            });
            if (message->msg == CURLMSG_DONE && request != requests_.end()) return {*request, message->data.result};
        }
        return {nullptr, CURLE_OK};
    }

  private:
    static constexpr double kPeriod = 1.0 / 30; // seconds

    bool startTimer() {
        if (timer_ && timer_->handle()) return true;
        const core::__Callback<Transfers> tick(this, &Transfers::tick);
        timer_ =
            frame() ? makeRegistered<Timer>(frame()->name() + " Internet", kPeriod, core::CallbackSlot(tick)) : nullptr;
        if (!timer_) return false;
        lastTick_ = steady_clock::now();
        return true;
    }

    void stopTimer() { destroyRegistered(timer_.get()); }

    /// A host whose clock runs ahead would run into the time limit before the first byte arrives, so each tick waits
    /// for the network for as long as it came too early.
    void tick() {
        const auto period = std::chrono::duration_cast<milliseconds>(std::chrono::duration<double>(kPeriod));
        const auto passed = std::chrono::duration_cast<milliseconds>(steady_clock::now() - lastTick_);
        work(std::clamp(period - passed, milliseconds(0), period));
        if (all()) lastTick_ = steady_clock::now();
    }

    CURLM* multi_ = curl_multi_init();
    std::vector<InternetGET*> requests_;
    std::vector<InternetGET*> refused_; ///< which are to fail
    std::shared_ptr<Timer> timer_;
    steady_clock::time_point lastTick_;
};

InternetGET::InternetGET(const std::string& url, const core::CallbackSlot& success, const core::CallbackSlot& failure,
                         const Limits& limits)
    : url_(url), success_(success), failure_(failure), limits_(limits) {}

InternetGET::~InternetGET() {
    if (ended_) *ended_ = true;
    giveUp();
}

void InternetGET::giveUp() {
    auto& transfers = Transfers::all();
    if (!transfer_ || !transfers) return;
    transfers->remove(*this);
    transfer_.reset();
    if (transfers->empty()) transfers.reset();
}

void InternetGET::run() {
    if (running()) return;
    // The callback may delete this object; what the loop looks at is its own.
    bool ended = false;
    // Nobody waits any more when another request's callback throws.
    const utils::Finally left([&] {
        if (ended) return;
        ended_ = nullptr;
        giveUp();
    });
    ended_ = &ended;
    begin(false);
    while (!ended) work(milliseconds(100));
}

void InternetGET::start() {
    if (!running()) begin(true);
}

void InternetGET::begin(bool inBackground) {
    content_.clear();
    error_.clear();
    errorCode_ = InternetError::None;
    platformErrorCode_ = 0;
    asynchronous_ = inBackground;
    transfer_ = std::make_unique<Transfer>(url_, limits_);
    auto& transfers = Transfers::all();
    if (!transfers) transfers.emplace();
    transfers->add(*this, inBackground);
    background::work = {.move = &work, .messageEnded = &failRefused};
}

// Callbacks may start and give up other requests, and even come back in here.

bool InternetGET::work(milliseconds patience) {
    failRefused();
    auto& transfers = Transfers::all();
    if (!transfers) return false;
    transfers->move(patience);
    while (transfers) {
        const auto [request, result] = transfers->ended();
        if (!request) break;
        request->end(result);
    }
    return true;
}

void InternetGET::failRefused() {
    auto& transfers = Transfers::all();
    while (InternetGET* const request = transfers ? transfers->refused() : nullptr) request->end(CURLE_FAILED_INIT);
}

InternetError InternetGET::meaningOf(int result, const Transfer& transfer) {
    switch (result) {
    case CURLE_OK: return InternetError::None;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY: return InternetError::Offline;
    case CURLE_COULDNT_CONNECT: {
        const long systemError = transfer.info(CURLINFO_OS_ERRNO);
        const bool offline = systemError == ENETUNREACH || systemError == EHOSTUNREACH || systemError == ENETDOWN;
        return offline ? InternetError::Offline : InternetError::Unreachable;
    }
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR: return InternetError::Unreachable;
    case CURLE_URL_MALFORMAT: return InternetError::BadURL;
    case CURLE_UNSUPPORTED_PROTOCOL: // of an address, or what a server speaks
        return transfer.info(CURLINFO_PRIMARY_PORT) != 0 && !transfer.headEnded ? InternetError::Other
                                                                                : InternetError::BadURL;
    case CURLE_OPERATION_TIMEDOUT: return InternetError::TimedOut;
    case CURLE_TOO_MANY_REDIRECTS: return InternetError::Redirects;
    default: return InternetError::Other;
    }
}

void InternetGET::end(int result) {
    constexpr long kFound = 200;
    const auto code = static_cast<CURLcode>(result);
    auto& transfers = Transfers::all();
    transfers->remove(*this);
    const std::unique_ptr<Transfer> transfer = std::move(transfer_);
    const long status = code == CURLE_OK ? transfer->info(CURLINFO_RESPONSE_CODE) : 0;
    if (transfer->tooLarge || code == CURLE_FILESIZE_EXCEEDED) {
        fail(InternetError::TooLarge, result, "The reply is too large.");
    } else if (code != CURLE_OK) {
        const InternetError meaning = meaningOf(code, *transfer);
        const char* const said = transfer->message.front() ? transfer->message.data() : curl_easy_strerror(code);
        fail(meaning, result, meaning == InternetError::Offline ? "The Internet appears to be offline." : said);
    } else if (!transfer->headEnded) {
        fail(InternetError::Unreachable, CURLE_PARTIAL_FILE, "The reply was cut.");
    } else if (status != kFound) {
        fail(InternetError::Status, static_cast<int>(status),
             "The server replied with status " + std::to_string(status) + ".");
    } else {
        content_ = std::move(transfer->body);
    }
    if (ended_) *std::exchange(ended_, nullptr) = true;
    if (transfers->empty()) transfers.reset();
    // Held here, since the callback may delete this object.
    const core::CallbackSlot callback = errorCode_ == InternetError::None ? success_ : failure_;
    callback.run();
}

void InternetGET::fail(InternetError code, int platformCode, const std::string& text) {
    errorCode_ = code;
    platformErrorCode_ = platformCode;
    error_ = text;
}

} // namespace kzo::plugin
