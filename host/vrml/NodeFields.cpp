#include "host/vrml/NodeFields.h"

#include <Inventor/VRMLnodes/SoVRMLScript.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoProto.h>
#include <Inventor/misc/SoProtoInstance.h>

namespace kthost
{
namespace
{

void append(SoNode* node, std::vector<SoNode*>& nodes)
{
    if (node && !node->isOfType(SoProto::getClassTypeId()))
        nodes.push_back(node);
}

std::vector<int> nodeFieldsOf(const SoFieldContainer& container, const SoFieldData& fields)
{
    std::vector<int> indices;
    for (int i = 0; i < fields.getNumFields(); ++i) {
        const SoField* const field = fields.getField(&container, i);
        if (field->isOfType(SoSFNode::getClassTypeId()) || field->isOfType(SoMFNode::getClassTypeId()))
            indices.push_back(i);
    }
    return indices;
}

void emptyFields(const SoFieldContainer& container, const SoFieldData* fields)
{
    if (!fields)
        return;
    for (const int index : nodeFieldsOf(container, *fields)) {
        SoField* const field = fields->getField(&container, index);
        if (field->isOfType(SoSFNode::getClassTypeId()))
            static_cast<SoSFNode*>(field)->setValue(nullptr);
        else
            static_cast<SoMFNode*>(field)->setNum(0);
    }
}

} // namespace

void NodeFields::appendFields(const SoFieldContainer& container, const SoFieldData* fields,
                              std::vector<SoNode*>& nodes)
{
    if (!fields)
        return;
    const auto [known, isNew] = _nodeFields.try_emplace(fields);
    if (isNew)
        known->second = nodeFieldsOf(container, *fields);
    for (const int index : known->second) {
        const SoField* const field = fields->getField(&container, index);
        if (field->isOfType(SoSFNode::getClassTypeId())) {
            append(static_cast<const SoSFNode*>(field)->getValue(), nodes);
        } else {
            const auto* const list = static_cast<const SoMFNode*>(field);
            for (int i = 0; i < list->getNum(); ++i)
                append((*list)[i], nodes);
        }
    }
}

void NodeFields::appendHidden(SoNode& node, std::vector<SoNode*>& nodes)
{
    const SoChildList* const children = node.getChildren();
    for (int i = 0; children && i < children->getLength(); ++i)
        append((*children)[i], nodes);
}

std::vector<SoNode*> NodeFields::nodesOf(SoNode& node)
{
    std::vector<SoNode*> nodes;
    appendFields(node, node.getFieldData(), nodes);
    if (const SoProtoInstance* const instance = SoProtoInstance::findProtoInstance(&node)) {
        const SoFieldContainer& container = *instance;
        appendFields(container, container.getFieldData(), nodes);
    }
    appendHidden(node, nodes);
    return nodes;
}

void NodeFields::empty(SoNode& node)
{
    if (const SoProtoInstance* const instance = SoProtoInstance::findProtoInstance(&node)) {
        const SoFieldContainer& container = *instance;
        emptyFields(container, container.getFieldData());
    }
    emptyFields(node, node.getFieldData());
    node.getChildren(); // takes the change over, and with it lets go of what was there
}

std::vector<SoNode*> NodeFields::drawnNodesOf(SoNode& node)
{
    std::vector<SoNode*> nodes;
    if (node.isOfType(SoVRMLScript::getClassTypeId()))
        return nodes;
    appendFields(node, node.getFieldData(), nodes);
    std::vector<SoNode*> hidden;
    appendHidden(node, hidden);
    if (hidden == nodes)
        return nodes;
    // Most of these are in a field too.
    std::unordered_map<SoNode*, int> held;
    for (SoNode* const child : nodes)
        ++held[child];
    for (SoNode* const child : hidden) {
        if (--held[child] < 0)
            nodes.push_back(child);
    }
    return nodes;
}

} // namespace kthost
