#pragma once

#include <osg/FieldContainer.h>
#include <osg/Ptr.h>

#include <vector>

namespace osg
{

class AttachmentContainer;

/// Something that hangs on a node or a core, such as its name.
class KT_OSG_EXPORT Attachment : public FieldContainer
{
public:
    static const FieldContainerType& getClassType();

protected:
    /// Tells every container that it hangs on that its content is another one.
    void contentChanged();

private:
    friend class AttachmentContainer;

    std::vector<AttachmentContainer*> _parents; ///< Not owned; they own us.
};

using AttachmentPtr = Ptr<Attachment>;

} // namespace osg
