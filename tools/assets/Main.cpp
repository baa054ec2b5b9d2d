// asset_maker FOLDER: computes the images and models that the viewer shows, below FOLDER/shared and
// FOLDER/local. Alike from run to run.

#include "tools/assets/Cube.h"
#include "tools/assets/DefaultTexture.h"
#include "tools/assets/Grass.h"
#include "tools/assets/Gui.h"
#include "tools/assets/Marks.h"
#include "tools/assets/Runway.h"
#include "tools/assets/Sky.h"
#include "tools/assets/VorAntenna.h"
#include "tools/assets/VrmlWriter.h"

#include <exception>
#include <iostream>

namespace {

namespace fs = std::filesystem;

void makeShared(const fs::path& folder) {
    using namespace Assets;
    const fs::path images = folder / "images";
    const fs::path models = folder / "models";
    defaultTexturePicture().writeBmp(images / "DefaultTexture.bmp");
    panelPicture().writePng(images / "gui/panel.png");
    focusBorderPicture().writePng(images / "gui/hasFocusBorder.png");
    pianoKeyPicture().writePng(images / "pianokey.png");
    lightPulsePicture().writePng(images / "whiteStripOnTransparent.png");
    runwayPicture().writeJpeg(models / "RunwayBase.jpg", 92);
    writeVrml(models / "road26x10.wrl", runwaySlab(), "RunwayBase.jpg");
    redPlasticPicture().writePng(models / "redShinyPlastic.png");
    writeVrml(models / "cube4x4x4redShinyPlastic_pp.wrl", roundedCube(), "redShinyPlastic.png");
}

void makeLocal(const fs::path& folder) {
    using namespace Assets;
    const fs::path images = folder / "images";
    const fs::path models = folder / "models";
    skyPicture().writeJpeg(images / "skyboxes/sky_cloudy3+6.jpg", 92);
    dipoleArrayPicture().writeJpeg(images / "lpdelement.jpg", 95);
    grassPicture().writeJpeg(models / "grassFloor.jpg", 92);
    writeVrml(models / "grassFloor400x400_pp.wrl", grassFloor(), "grassFloor.jpg");
    meshPicture().writePng(models / "vorMesh.png");
    write3ds(models / "vorBase.3DS", vorCounterpoise());
    write3ds(models / "vorAnt.3DS", vorAntennas());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: asset_maker FOLDER\n";
        return 2;
    }
    try {
        makeShared(fs::path(argv[1]) / "shared");
        makeLocal(fs::path(argv[1]) / "local");
    } catch (const std::exception& error) {
        std::cerr << "asset_maker: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
