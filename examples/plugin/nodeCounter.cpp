// A whole plug-in: it counts the scene's nodes and tells the count when it is asked.
//   kthost --headless --plugin libnodeCounter.so door.wrl --send nodeCount=Door

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>

#include <cstdio>

namespace
{

int countNodes(const ktNodePtr& node)
{
    int count = node ? 1 : 0;
    for (std::size_t i = 0; node && i < node->getNChildren(); ++i)
        count += countNodes(node->getChild(i));
    return count;
}

int nodes = 0;

/// The host calls this for the message "nodeCount". Prints the number of nodes, and of those so called.
void nodeCountCB(ktMessage& message)
{
    std::string name;
    message.get("animation-name", name); // stays empty where it is missing
    std::printf("%d nodes, %zu called \"%s\"\n", nodes, ktScenegraph::findNodes(name.c_str()).size(),
                name.c_str());
    std::fflush(stdout);
}

/// Registered with the host from construction to destruction. Asks for two of the host's messages.
class NodeCounter : public ktModuleBase
{
public:
    NodeCounter()
        : ktModuleBase("NodeCounter", "Node counter", ktMessageId::SceneCleared | ktMessageId::SceneChanged,
                       nullptr)
    {
        ktController::addCB("nodeCount", nodeCountCB);
    }
    ~NodeCounter() override { ktController::subCB("nodeCount", nodeCountCB); }

    void receivedMessage(ktMessage&) override { nodes = countNodes(ktScenegraph::getRootNode()); }
};

} // namespace

// The two functions that the host looks up by name; hidden visibility keeps everything else inside.
extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0"; // the host's version that this was written for; another one refuses the plug-in
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    static NodeCounter module;
}
