#pragma once

#include "vtl/scene/SceneHost.h"

#include <array>
#include <vector>

namespace Vantrel::Tests {

/** Selects what it is told to, and keeps where it was asked. */
class SelectingHost final : public SceneHost {
public:
    SelectingHost() { SceneHost::set(this); }
    SelectingHost(const SelectingHost&) = delete;
    SelectingHost& operator=(const SelectingHost&) = delete;
    ~SelectingHost() { SceneHost::set(nullptr); }

    Camera* getCamera() override { return nullptr; }
    WorldContainer* getWorldContainer() override { return nullptr; }
    void processSelection(int x, int y, Camera* /*camera*/) override { pixels.push_back({x, y}); }
    WO* getSelectedWO() override { return selected; }
    const Vector* getSelectedWorldCoord() override { return &coordinate; }

    WO* selected = nullptr;
    Vector coordinate;
    std::vector<std::array<int, 2>> pixels;
};

} // namespace Vantrel::Tests
