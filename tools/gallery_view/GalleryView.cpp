#include "tools/gallery_view/GalleryView.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/render/VantrelGLRendererBase.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/object/WorldList.h"

#include <array>

namespace Vantrel {
namespace {

struct Shot {
    const char* name;
    const char* group;
    Vector position;
    Vector direction;
};

/** Before the boards. */
constexpr Vector before(float distance) {
    return {distance, 0, 0};
}

constexpr Vector ahead(-1, 0, 0);

constexpr std::array shots{
    Shot{"sky_north", "airport", {0, 300, 30}, {0, 1, 0.35F}},
    Shot{"sky_east", "airport", {0, 300, 30}, {1, 0, 0.35F}},
    Shot{"sky_south", "airport", {0, 300, 30}, {0, -1, 0.35F}},
    Shot{"sky_west", "airport", {0, 300, 30}, {-1, 0, 0.35F}},
    Shot{"sky_corner", "airport", {0, 300, 30}, {1, 1, 1.2F}},
    Shot{"sky_up", "airport", {0, 300, 30}, {0.05F, 0, 1}},
    Shot{"grass_1.7m", "airport", {900, 900, 1.7F}, {1, 0.2F, -0.12F}},
    Shot{"grass_100m", "airport", {900, 900, 100}, {1, 0.2F, -0.35F}},
    Shot{"grass_1000m", "airport", {2000, 900, 1000}, {1, 0.2F, -0.4F}},
    Shot{"grass_down_1000m", "airport", {3000, 900, 1000}, {0.01F, 0, -1}},
    Shot{"runway_approach", "airport", {75, 0, 11}, {-1, 0, -0.13F}},
    Shot{"runway_300m", "airport", {150, -60, 300}, {-0.9F, 0.1F, -0.75F}},
    Shot{"runway_threshold", "airport", {20, -14, 9}, {-1, 0.2F, -0.28F}},
    Shot{"localizer", "airport", {-2690, -15, 7}, {-0.7F, 0.72F, -0.33F}},
    Shot{"localizer_far", "airport", {-2650, -25, 12}, {-0.9F, 0.35F, -0.2F}},
    Shot{"vor", "airport", {-576, 228, 13}, {-0.6F, 0.82F, -0.3F}},
    Shot{"vor_near", "airport", {-590, 246, 6.4F}, {-0.6F, 0.72F, -0.12F}},
    Shot{"vor_below", "airport", {-572, 236, 1.7F}, {-0.75F, 0.6F, 0.03F}},
    Shot{"cube", "airport", {-312, -88, 6}, {-0.8F, 0.8F, -0.35F}},
    Shot{"image_sky", "sky_strip", before(4.6F), ahead},
    Shot{"image_grass", "grass", before(1.7F), ahead},
    Shot{"image_runway", "runway_texture", before(1.7F), ahead},
    Shot{"image_pianokey", "pianokey", before(1.7F), ahead},
    Shot{"image_lpdelement", "lpdelement", before(1.9F), ahead},
    Shot{"image_white_strip", "white_strip", before(3.0F), ahead},
    Shot{"image_red_plastic", "red_plastic", before(1.7F), ahead},
    Shot{"image_vor_mesh", "vor_mesh", before(1.7F), ahead},
    Shot{"image_panel", "panel", before(1.7F), ahead},
    Shot{"image_focus_border", "focus_border", before(1.7F), ahead},
};

/** In the order of the list. */
class OrderedWorld : public WorldList {
public:
    OrderedWorld() : WorldList(true, GUIRoot::made) {}
    void sort(Camera* /*camera*/) override {}
};

} // namespace

GalleryView::GalleryView(std::vector<std::string> commandLine, std::filesystem::path folder_)
    : GLView(std::move(commandLine)), folder(std::move(folder_)) {
}

void GalleryView::loadMap() {
    worldLst = std::make_unique<OrderedWorld>();
    actorLst = std::make_unique<WorldList>();
    auxLst = std::make_unique<WorldList>();
    constexpr float farthest = 100000;
    ManagerOpenGLState::setFarPlane(farthest);
    ManagerOpenGLState::setAxesVisible(false);
    ManagerOpenGLState::setFrustumCullingEnabled(false);
    gallery.emplace(*worldLst, getCameraHolder());
}

void GalleryView::updateWorld() {
    GLView::updateWorld();
    if (next == shots.size()) {
        vtlShutdownEngine();
        return;
    }
    const Shot& shot = shots[next++];
    gallery->show(shot.group);
    Camera& camera = *getCamera();
    camera.setCameraNearClippingPlaneDistance(1);
    camera.setCameraFarClippingPlaneDistance(ManagerOpenGLState::getFarPlane());
    camera.setPosition(shot.position);
    camera.setCameraLookDirection(shot.direction.normalizeMe());
    getRenderer()->setCaptureNamedFrame(true, folder / (std::string(shot.name) + ".png"));
}

} // namespace Vantrel
