#pragma once

#include <atomic>
#include <cstdint>

namespace kthost
{

/// How far the check of a scene file is: a word of memory that SceneGuard shares with its program. Places are
/// bytes, as ReadingSession counts them.
class CheckProgress
{
public:
    /// Fresh memory; failed() where there is none.
    CheckProgress();

    /// The memory of another process, which handed over its descriptor.
    explicit CheckProgress(int descriptor);
    ~CheckProgress();
    CheckProgress(const CheckProgress&) = delete;
    CheckProgress& operator=(const CheckProgress&) = delete;

    bool failed() const { return _shared == nullptr; }

    /// Of the memory; its child processes do not inherit it by themselves.
    int descriptor() const { return _descriptor; }

    /// Before a check: it has survived nothing yet.
    void reset();

    /// The check has come to this place and survived all before it. True where somebody waits for that.
    bool tell(std::uint64_t place);

    /// The place told last: all before it is survived.
    std::uint64_t told() const;

    /// Lets tell() answer, once, when the check is beyond this place. To be followed by a look at told(),
    /// since that may just have come about.
    void await(std::uint64_t place);

private:
    struct Shared
    {
        std::atomic<std::uint64_t> told;
        std::atomic<std::uint64_t> awaited; ///< 0 for nothing; otherwise one more than the place.
    };
    static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "two processes see no common lock");

    void map();

    int _descriptor;
    Shared* _shared = nullptr;
};

} // namespace kthost
