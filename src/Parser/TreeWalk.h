#pragma once

#include "Parser/Element.h"

namespace varn {

/// The node behind `node` in document order, inside the tree below `top`; null at the end.
template <class E>
E* nextInTree(E* node, const Element* top)
{
    if (node->getFirstChild() != nullptr)
        return node->getFirstChild();
    while (node != top && node->getNextSibling() == nullptr)
        node = node->getParent();
    return node == top ? nullptr : node->getNextSibling();
}

} // namespace varn
