#pragma once

#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"

#include "tests/gl/mesh/MeshGLFixture.h"
#include "tests/support/SceneModels.h"

#include <optional>

namespace Vantrel::Tests {

/** A context, a camera in the scene that looks at the origin, and model files that are cubes. */
class SceneGLFixture : public MeshGLFixture, public SceneHost {
protected:
    void SetUp() override {
        MeshGLFixture::SetUp();
        files.emplace();
        eye.emplace(nullptr, nullptr);
        eye->setCameraAspectRatio(1);
        SceneHost::set(this);
        seeFrom(Vector(-10, 0, 0));
    }
    void TearDown() override {
        SceneHost::set(nullptr);
        eye.reset();
        files.reset();
        MeshGLFixture::TearDown();
    }

    Camera* getCamera() override { return eye ? &*eye : nullptr; }
    WorldContainer* getWorldContainer() override { return world; }

    void seeFrom(const Vector& place) {
        eye->setPosition(place);
        eye->setCameraLookDirection(place * -1);
        eye->updateCameraMatrices();
        lookThrough(eye->getShaderCamera());
    }

    /** The picture of one object on black. */
    PixelPicture pictureOf(WO& object) {
        clearPicture();
        object.render(&*eye);
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
        return picture();
    }
    PixelPicture selectionPictureOf(WO& object) {
        clearPicture();
        object.renderSelection(&*eye);
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
        return picture();
    }
    static Pixel selectionColorOf(const WO& object) {
        Pixel color{};
        object.getSelectionColor(color[0], color[1], color[2]);
        return color;
    }

    std::optional<CubeFiles> files;
    std::optional<CameraStandardEZNav> eye;
    WorldContainer* world = nullptr;
};

} // namespace Vantrel::Tests
