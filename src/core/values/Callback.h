// Callables that the framework stores and runs later. Whoever stores one stores its own clone.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace kzo::core {

/// A call without arguments to something of the plug-in's.
class Callback {
  public:
    virtual ~Callback() = default;
    virtual void execute() = 0;
    [[nodiscard]] virtual std::unique_ptr<Callback> clone() const = 0;

  protected:
    Callback() = default;
    Callback(const Callback&) = default;
    Callback& operator=(const Callback&) = default;
};

/// A member function of a receiver, which is not owned and must outlive the callback. Without a receiver or a function
/// it does nothing.
template <class T> class __Callback : public Callback {
  public:
    using Method = void (T::*)();
    using ConstMethod = void (T::*)() const;

    __Callback() = default;
    __Callback(T* object, Method method) : object_(object), method_(method) {}
    __Callback(T* object, ConstMethod method) : object_(object), constMethod_(method) {}

    void execute() override {
        if (!object_) return;
        if (method_)
            (object_->*method_)();
        else if (constMethod_)
            (object_->*constMethod_)();
    }

    [[nodiscard]] std::unique_ptr<Callback> clone() const override { return std::make_unique<__Callback>(*this); }

  private:
    T* object_ = nullptr;
    Method method_ = nullptr;
    ConstMethod constMethod_ = nullptr;
};

/// Any call without arguments; what it captures is copied with it.
template <class Work> class WorkCallback final : public Callback {
  public:
    explicit WorkCallback(Work work) : work_(std::move(work)) {}

    void execute() override { work_(); }
    [[nodiscard]] std::unique_ptr<Callback> clone() const override { return std::make_unique<WorkCallback>(*this); }

  private:
    Work work_;
};

/// A callback made of a lambda: `tool.setDragCallback(callback([this] { drag(); }))`.
template <class Work> [[nodiscard]] WorkCallback<std::decay_t<Work>> callback(Work&& work) {
    return WorkCallback<std::decay_t<Work>>(std::forward<Work>(work));
}

/// A place for one stored callback, empty at first.
class CallbackSlot {
  public:
    CallbackSlot() = default;
    explicit CallbackSlot(const Callback& callback) : callback_(callback.clone()) {}

    void set(const Callback& callback) { callback_ = callback.clone(); }
    [[nodiscard]] Callback* get() const { return callback_.get(); }

    /// Runs the callback, if there is one. It may replace or remove itself meanwhile.
    void run() const {
        const std::shared_ptr<Callback> running = callback_;
        if (running) running->execute();
    }

  private:
    std::shared_ptr<Callback> callback_;
};

} // namespace kzo::core
