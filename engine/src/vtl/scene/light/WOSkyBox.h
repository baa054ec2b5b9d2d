#pragma once

#include "vtl/scene/light/MGLSkyBox.h"
#include "vtl/scene/object/WO.h"

#include <memory>
#include <span>
#include <string>

namespace Vantrel {

/** The sky: a cube with the camera in its middle, upright as the camera's horizontal turns are. */
class WOSkyBox : public WO {
public:
    static std::string getClassName() { return "WOSkyBox"; }
    /** As large as the view volume of now allows. `cameraHolder` holds the current camera, and isn't null. */
    static std::unique_ptr<WOSkyBox> New(const std::string& imageFile, MGLSkyBox::CameraHolder cameraHolder);

    using WO::onCreate;
    /** `size` is half the edge of the cube. */
    virtual void onCreate(const std::string& imageFile, MGLSkyBox::CameraHolder cameraHolder, float size);
    /** With a skin for each image. */
    virtual void onCreate(std::span<const std::string> imageFiles, MGLSkyBox::CameraHolder cameraHolder,
                          float size);
    /** Up and right go to the next image, down and left to the one before. */
    void onKeyDown(const SDL_KeyboardEvent& event) override;
    /** Goes where the camera is. */
    void onUpdate() override;

    void setBoxSize(float size) { skyBox().setBoxSize(size); }
    void setBoxSizeFromFarPlane(float farPlane) { skyBox().setBoxSizeFromFarPlane(farPlane); }
    void setCameraHolder(MGLSkyBox::CameraHolder holder) { skyBox().setCameraHolder(holder); }

private:
    MGLSkyBox& skyBox() const { return static_cast<MGLSkyBox&>(*getModel()); }
    void alignTo(const Vector& axis);

    /** The camera's axis that the box is aligned to. */
    Vector lastHorizontalAxis;
};

} // namespace Vantrel
