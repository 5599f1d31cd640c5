// A container that places each child by its distance from an edge, or from the centre.
#pragma once
#include "ui/abstractcontainer.hpp"

namespace zv {

enum Anchor : int { ANCHOR_LEFT, ANCHOR_RIGHT, ANCHOR_TOP, ANCHOR_BOTTOM, ANCHOR_CENTER };

// Where one child is anchored.
struct UIAnchorWrapper : Object {
    Ref<UIWidget> child;
    int x = 0, y = 0;
    int anchorTypeX = ANCHOR_LEFT, anchorTypeY = ANCHOR_TOP;

    void eachRef(RefVisitor& visit) override { visit(child); }
};

struct UIAnchoredContainer : AbstractUIContainer {
    std::vector<Ref<UIAnchorWrapper>> anchors;  // one for each child, in the same order

    void eachRef(RefVisitor& visit) override {
        AbstractUIContainer::eachRef(visit);
        visit(anchors);
    }

    void calculatePos() override;

    void init();
    void addChild(Ref<UIWidget> child, int x, int y, int anchorTypeX, int anchorTypeY);
    void removeChild(Ref<UIWidget> child);
    void removeAllChildren();
};

void declareUIAnchoredContainer(Module&);

}  // namespace zv
