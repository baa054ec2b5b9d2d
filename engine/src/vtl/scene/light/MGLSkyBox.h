#pragma once

#include "vtl/scene/model/MGL.h"

#include <memory>
#include <span>
#include <string>

namespace Vantrel {

class IndexedGeometrySkyBox;

/** The model of the sky: a cube around the current camera, with one skin for each image. */
class MGLSkyBox : public MGL {
public:
    /** The place that holds the current camera, which may change. */
    using CameraHolder = const std::unique_ptr<Camera>*;

    /** `boxSize_` is half the edge of the cube. Without a holder the process ends after a key. */
    MGLSkyBox(WO* parent, std::span<const std::string> imageFiles, CameraHolder holder, float boxSize_);
    ~MGLSkyBox() override;

    void render(Camera* camera) override;
    /** The sky can't be picked. */
    void renderSelection(Camera* /*camera*/, std::uint8_t /*r*/, std::uint8_t /*g*/,
                         std::uint8_t /*b*/) override {}

    virtual CameraHolder getCameraHolder() const { return cameraHolder; }
    /** The current camera; null for none, and without a holder. */
    const Camera* findCamera() const { return cameraHolder != nullptr ? cameraHolder->get() : nullptr; }
    /** Null lets the sky stay where it is. */
    virtual void setCameraHolder(CameraHolder holder) { cameraHolder = holder; }
    /** The size that keeps the corners just within that distance. */
    static float sizeFor(float farPlane) { return farPlane * 0.575F; }
    virtual void setBoxSizeFromFarPlane(float farPlane) { setBoxSize(sizeFor(farPlane)); }
    void setBoxSize(float size);
    float getBoxSize() const { return boxSize; }

private:
    void addImage(const std::string& imageFile);

    float boxSize;
    CameraHolder cameraHolder;
    std::unique_ptr<IndexedGeometrySkyBox> box;
    /** The one that all images are drawn by copies of; null below 3.2. */
    std::unique_ptr<GLSLShader> shader;
};

} // namespace Vantrel
