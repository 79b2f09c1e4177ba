#include <kt/ktPythonInit.h>

#include "kt/Blame_p.h"

#include <kt/ktFailures.h>

#include <algorithm>
#include <vector>

namespace
{

// Never destroyed: plug-ins' objects leave it while the process ends.
std::vector<ktPythonInit*>& living()
{
    static auto* const instance = new std::vector<ktPythonInit*>;
    return *instance;
}

} // namespace

ktPythonInit::ktPythonInit(Callback callback) : _callback(callback)
{
    living().push_back(this);
}

ktPythonInit::~ktPythonInit()
{
    auto& all = living();
    all.erase(std::remove(all.begin(), all.end(), this), all.end());
}

void ktPythonInit::dropCallbacks(const std::function<bool(Callback)>& isGone)
{
    for (ktPythonInit* init : living()) {
        if (init->_callback && isGone(init->_callback))
            init->_callback = nullptr;
    }
}

void ktPythonInit::notify(bool destroy)
{
    const char* const occasion = destroy ? "interpreter end" : "interpreter start";
    const std::vector<ktPythonInit*> present = living();
    for (ktPythonInit* init : present) {
        const bool lives = std::find(living().begin(), living().end(), init) != living().end();
        if (!lives || !init->_callback || init->_isReady != destroy)
            continue;
        init->_isReady = !destroy;
        const std::string library = libraryOf(init->_callback); // the object may go meanwhile
        ktFailures::survived([&] { return failureOf(occasion, library); }, [&] { init->_callback(destroy); });
    }
}
