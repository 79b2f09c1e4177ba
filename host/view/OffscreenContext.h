#pragma once

#include <QString>

#include <memory>

namespace kthost
{

/// An OpenGL context that needs no window and no display: the driver's surfaceless platform, in software
/// where there is no graphics card. Used from the thread that made it.
class OffscreenContext
{
public:
    /// Null where the driver offers none; `error` then says why, in one line.
    static std::unique_ptr<OffscreenContext> create(QString& error);

    ~OffscreenContext();

    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

    /// Makes the context the thread's current one while it lives, then gives the thread back the one it had.
    class Current
    {
    public:
        explicit Current(const OffscreenContext& context);
        ~Current();

        Current(const Current&) = delete;
        Current& operator=(const Current&) = delete;

        /// False where the driver refused.
        explicit operator bool() const { return _made; }

    private:
        struct Previous;
        const OffscreenContext& _context;
        std::unique_ptr<Previous> _previous;
        bool _made = false;
    };

private:
    OffscreenContext(void* display, void* context) : _display(display), _context(context) {}

    void* _display; ///< EGLDisplay
    void* _context; ///< EGLContext
};

} // namespace kthost
