#include <kt/ktSelectionManager.h>

namespace
{

std::vector<ktNodePtr>& selection()
{
    static auto* const instance = new std::vector<ktNodePtr>;
    return *instance;
}

ktSelectionManager::ChangeHandler changeHandler = nullptr;

} // namespace

void ktSelectionManager::selectNodes(const std::vector<ktNodePtr>& nodes)
{
    std::vector<ktNodePtr> selected;
    for (const ktNodePtr& node : nodes) {
        if (node)
            selected.push_back(node);
    }
    selection().swap(selected);
    if (changeHandler)
        changeHandler();
}

const std::vector<ktNodePtr>& ktSelectionManager::selectedNodes()
{
    return selection();
}

void ktSelectionManager::setChangeHandler(ChangeHandler handler)
{
    changeHandler = handler;
}
