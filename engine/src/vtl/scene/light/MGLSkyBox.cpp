#include "vtl/scene/light/MGLSkyBox.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/geometry/IndexedGeometrySkyBox.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

MGLSkyBox::MGLSkyBox(WO* parent, std::span<const std::string> imageFiles, CameraHolder holder, float boxSize_)
    : MGL(parent), boxSize(boxSize_), cameraHolder(holder), box(IndexedGeometrySkyBox::New(boxSize_)) {
    if (cameraHolder == nullptr) {
        Report() << "ERROR: User passed NULL cam into MGLSkyBox Constructor\n";
        Pause::exitAfterKey();
    }
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        const std::string path = ManagerEnvironmentConfiguration::getSharedMultimediaPath();
        shader = GLSLShader::New(path + "/shaders/skyboxGL4.vert", path + "/shaders/skyboxGL4.frag");
    }
    for (const std::string& file : imageFiles) {
        addImage(file);
    }
}

MGLSkyBox::~MGLSkyBox() = default;

void MGLSkyBox::addImage(const std::string& imageFile) {
    ModelMeshSkin skin(ManagerTexture::loadTexture(imageFile));
    for (const auto& image : skin.textures) { // none without a window
        image->setMagFilter(GL_LINEAR);
        image->setMinFilter(GL_LINEAR);
        image->setWrapS(GL_CLAMP_TO_EDGE);
        image->setWrapT(GL_CLAMP_TO_EDGE);
    }
    skin.setShader(shader != nullptr ? shader->clone() : nullptr);
    skins.list.push_back(std::move(skin));
}

void MGLSkyBox::render(Camera* camera) {
    if (const Camera* const current = findCamera()) {
        setTranslation(current->getPosition());
    }
    renderGeometry(*camera, *box);
}

void MGLSkyBox::setBoxSize(float size) {
    boxSize = size;
    box = IndexedGeometrySkyBox::New(boxSize);
}

} // namespace Vantrel
