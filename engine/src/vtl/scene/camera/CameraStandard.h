#pragma once

#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

/** A camera that orbits about a point of an object while a person drags from there with Left Alt held. */
class CameraStandard : public Camera {
public:
    using Camera::Camera;

    /** With Left Alt and the left button attaches the camera to what is under the mouse. */
    void onMouseDown(const SDL_MouseButtonEvent& event) override;
    /** Letting go of any button ends the orbit. */
    void onMouseUp(const SDL_MouseButtonEvent& event) override;
    /** While attached, dragging goes round and to or from the point, with Left Ctrl up and down. */
    void onMouseMove(const SDL_MouseMotionEvent& event) override;
    /** The orbit starts from where the camera is, but level with the point. */
    bool attachCameraToWO(WO* object, const Vector& point) override;
    /** While attached, the camera is where the orbit has it, and looks at the point. */
    void update() override;

protected:
    /** Moves the orbit by the last motion of the mouse. */
    void dragOrbit();

private:
    /** Radians about the horizontal rotation axis. */
    float orbitAzimuth = 0.0F;
    /** Radians, positive downwards. */
    float orbitElevation = 0.0F;
    /** Metres, before the scale of the distance. */
    float orbitRadius = 0.0F;
    /** Radians per pixel. */
    float orbitDragRate = 0.0055F;
    /** What the angles are taken in. */
    Mat4 orbitFrame;
};

} // namespace Vantrel
