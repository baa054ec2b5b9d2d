#include "module/GLViewKELDIN.h"

#include "module/WorldContainerKELDIN.h"
#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

std::unique_ptr<GLView> GLViewKELDIN::New(const std::vector<std::string>& args) {
    const std::string named = ManagerEnvironmentConfiguration::getCommandLineValue(args, "configurationfile");
    auto view = std::make_unique<GLViewKELDIN>(args);
    view->init(named.empty() ? "vantrel.conf" : named);
    view->onCreate();
    return view;
}

void GLViewKELDIN::loadMap() {
    worldLst = std::make_unique<WorldContainerKELDIN>();
    actorLst = std::make_unique<WorldList>();
    auxLst = std::make_unique<WorldList>();
}

void GLViewKELDIN::onCreate() {
    constexpr int flyingCamera = 11;
    Report() << "Entering onCreate\n";
    ManagerWindowing::setWindowTitle("Keldin Visualizer " __DATE__ ", " __TIME__ " EST");
    Report() << "Changing camera mode.\n";
    setCameraType(flyingCamera);
    getCamera()->setPosition(Vector(150, 125, 125));
    getCamera()->setCameraLookDirection(Vector(-0.85F, -0.35F, -0.4F));
    Report() << "Leaving onCreate\nGonna init here...\n";
}

} // namespace Vantrel
