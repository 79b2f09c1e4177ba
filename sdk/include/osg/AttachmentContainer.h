#pragma once

#include <osg/Attachment.h>
#include <osg/FieldContainer.h>

#include <cstdint>
#include <vector>

namespace osg
{

/// A field container that carries attachments: one for each pair of attachment group and binding.
class KT_OSG_EXPORT AttachmentContainer : public FieldContainer
{
public:
    static const FieldContainerType& getClassType();

    static constexpr FieldMask AttachmentsFieldMask = 1u << 0;

    /// Hangs `attachment` on, in place of the one of the same group and binding. A null one is ignored.
    void addAttachment(const AttachmentPtr& attachment, std::uint16_t binding = 0);

    /// Takes it off wherever it hangs; one that does not hang here is ignored.
    void subAttachment(const AttachmentPtr& attachment);

    /// The attachment of this group (FieldContainerType::getGroupId) and binding, or null.
    AttachmentPtr findAttachment(std::uint32_t groupId, std::uint16_t binding = 0) const;

protected:
    AttachmentContainer() = default;
    ~AttachmentContainer() override;

private:
    friend class Attachment;

    struct Entry
    {
        std::uint32_t groupId;
        std::uint16_t binding;
        AttachmentPtr attachment;
    };

    /// An attachment was hung on, taken off or has another content.
    virtual void attachmentsChanged() = 0;

    void detach(Entry& entry);

    std::vector<Entry> _attachments;
};

} // namespace osg
