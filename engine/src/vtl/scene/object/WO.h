#pragma once

#include "vtl/base/ReportedObject.h"
#include "vtl/math/VectorT.h"

#include <SDL.h>
#include <cstdint>
#include <string>

namespace Vantrel {

class Camera;

/**
 * World object: base of everything that stands in the scene. It is identified, labelled and placed, and hears
 * of the frame and of input through its callbacks. Main thread.
 */
class WO : public ReportedObject {
public:
    /** Takes the next id of the process-wide counter, which starts at 1 and is never reset. */
    WO();
    WO(const WO&) = delete;
    WO& operator=(const WO&) = delete;
    virtual ~WO();

    virtual void setLabel(std::string name) { label = std::move(name); }
    /** Metres, in the world's axes. */
    virtual Vector getPosition() const { return position; }
    virtual void setPosition(const Vector& place) { position = place; }
    /** Unit vector along the object's own +X, in the world's axes. */
    virtual Vector getLookDirection() const { return unitX; }

    virtual void onKeyDown(const SDL_KeyboardEvent& event);
    virtual void onKeyUp(const SDL_KeyboardEvent& event);
    virtual void onMouseDown(const SDL_MouseButtonEvent& /*event*/) {}
    virtual void onMouseUp(const SDL_MouseButtonEvent& /*event*/) {}
    virtual void onMouseWheelScroll(const SDL_MouseWheelEvent& /*event*/) {}
    virtual void onMouseMove(const SDL_MouseMotionEvent& /*event*/) {}

    virtual void render(Camera* /*camera*/) {}
    /** Runs once per simulation step, before `onUpdate`. */
    virtual void updateGL();
    /** Runs once per frame. */
    virtual void onUpdate() {}

    std::uint32_t getID() const override { return woID; }
    const std::string& getLabel() const override { return label; }
    /** Sum of the simulation steps seen so far, in milliseconds. */
    std::uint32_t getTimeAliveMs() const { return timeAliveMs; }

private:
    std::uint32_t woID;
    std::string label;
    Vector position;
    std::uint32_t timeAliveMs = 0;
};

} // namespace Vantrel
