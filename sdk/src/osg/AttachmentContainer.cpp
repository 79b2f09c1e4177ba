#include <osg/AttachmentContainer.h>

#include <osg/FieldContainerType.h>

#include <algorithm>

namespace osg
{

const FieldContainerType& Attachment::getClassType()
{
    static const FieldContainerType type("Attachment", &FieldContainer::getClassType(), true);
    return type;
}

void Attachment::contentChanged()
{
    for (AttachmentContainer* parent : _parents)
        parent->attachmentsChanged();
}

const FieldContainerType& AttachmentContainer::getClassType()
{
    static const FieldContainerType type("AttachmentContainer", &FieldContainer::getClassType());
    return type;
}

AttachmentContainer::~AttachmentContainer()
{
    for (Entry& entry : _attachments)
        detach(entry);
}

void AttachmentContainer::addAttachment(const AttachmentPtr& attachment, std::uint16_t binding)
{
    if (!attachment)
        return;
    const std::uint32_t groupId = attachment->getType().getGroupId();
    const auto sameSlot = [&](const Entry& entry) {
        return entry.groupId == groupId && entry.binding == binding;
    };
    const auto slot = std::find_if(_attachments.begin(), _attachments.end(), sameSlot);
    attachment->_parents.push_back(this);
    if (slot == _attachments.end()) {
        _attachments.push_back({groupId, binding, attachment});
    } else {
        detach(*slot);
        slot->attachment = attachment;
    }
    attachmentsChanged();
}

void AttachmentContainer::subAttachment(const AttachmentPtr& attachment)
{
    const AttachmentPtr keep = attachment; // the caller's reference may be our own entry's
    const auto isOther = [&](const Entry& entry) { return entry.attachment != keep; };
    const auto wanted = std::stable_partition(_attachments.begin(), _attachments.end(), isOther);
    if (wanted == _attachments.end())
        return;
    std::for_each(wanted, _attachments.end(), [this](Entry& entry) { detach(entry); });
    _attachments.erase(wanted, _attachments.end());
    attachmentsChanged();
}

AttachmentPtr AttachmentContainer::findAttachment(std::uint32_t groupId, std::uint16_t binding) const
{
    for (const Entry& entry : _attachments) {
        if (entry.groupId == groupId && entry.binding == binding)
            return entry.attachment;
    }
    return {};
}

void AttachmentContainer::detach(Entry& entry)
{
    auto& parents = entry.attachment->_parents;
    parents.erase(std::find(parents.begin(), parents.end(), this));
}

} // namespace osg
