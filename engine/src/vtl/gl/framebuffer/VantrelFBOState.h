#pragma once

#include <cstdint>
#include <memory>
#include <utility>

namespace Vantrel {

/** A frame buffer object that has been bound, as the stack of binds knows it. */
class VantrelFBOState {
public:
    /** `object_` lives as long as the frame buffer object does. */
    VantrelFBOState(std::int32_t width_, std::int32_t height_, std::uint32_t handle,
                    std::weak_ptr<const void> object_)
        : width(width_), height(height_), fboHandle(handle), object(std::move(object_)) {}
    VantrelFBOState(const VantrelFBOState&) = delete;
    VantrelFBOState& operator=(const VantrelFBOState&) = delete;
    virtual ~VantrelFBOState() = default;

    /** False once the object has died: its name may be another one's by now. */
    bool isAlive() const { return !object.expired(); }

    /** Pixels. */
    std::int32_t width;
    std::int32_t height;
    std::uint32_t fboHandle;

private:
    std::weak_ptr<const void> object;
};

} // namespace Vantrel
