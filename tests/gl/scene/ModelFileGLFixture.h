#pragma once

#include "vtl/scene/model/Model.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <string_view>

namespace Vantrel::Tests {

/** A scene in which model files are really read, and a folder for them. */
class ModelFileGLFixture : public SceneGLFixture {
protected:
    static constexpr int middle = pictureSide / 2;

    void SetUp() override {
        SceneGLFixture::SetUp();
        files.reset();
    }

    template <class Parser>
    std::unique_ptr<ModelDataShared> parse(const std::string& file,
                                           MESH_SHADING_TYPE shading = MESH_SHADING_TYPE::mstAUTO) {
        reports.clear();
        return Parser(file, Vector(1, 1, 1), shading).parse();
    }
    static const ModelMeshRenderDataGenerator& generatorOf(ModelDataShared& data, std::size_t mesh = 0) {
        return data.getMeshes().at(mesh).getModelMeshDataShared()->getGenerator();
    }

    /** Writes an image of one colour; its name may say that it is of another format. */
    void writeImage(std::string_view name, const Pixel& color) {
        writePicture(PixelPicture{2, 2, {color, color, color, color}}, folder.path(name));
    }
    /** The file names of the skin's textures, without the folder. */
    std::string textureNames(const ModelMeshSkin& skin) const {
        std::string names;
        for (const std::unique_ptr<Texture>& texture : skin.textures) {
            const std::string name = texture->getFileName();
            names.append(names.empty() ? 0 : 1, ' ').append(name, name.rfind('/') + 1);
        }
        return names;
    }

    /** An image whose quarters are red, green (below), blue and yellow. */
    void writeQuarters(std::string_view name) {
        writePicture(PixelPicture{2, 2, {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}},
                     folder.path(name));
    }
    /** Expects that the square around the origin shows these quarters, seen along +X. */
    void expectQuarters(WO& square, const std::string& nameOfPicture) {
        const auto& image = square.getModel()->getSkin().textures.at(0);
        image->setMagFilter(GL_NEAREST);
        image->setMinFilter(GL_NEAREST);
        const PixelPicture shown = pictureOf(square);
        constexpr int aside = 20;
        const auto isMostly = [&](int x, int y, std::size_t channel) {
            const Pixel& pixel = shown.at(x, y);
            return pixel[channel] > 100 && pixel[channel] > 2 * pixel[(channel + 1) % 3] - 1;
        };
        EXPECT_TRUE(isMostly(middle - aside, middle - aside, 0)) << "red is below, left";
        EXPECT_TRUE(isMostly(middle + aside, middle - aside, 1)) << "green is below, right";
        EXPECT_TRUE(isMostly(middle - aside, middle + aside, 2)) << "blue is above, left";
        leavePictures(shown, shown, nameOfPicture + GetParam().version() + GetParam().profile, HasFailure());
    }

    TemporaryFolder folder;
};

} // namespace Vantrel::Tests
