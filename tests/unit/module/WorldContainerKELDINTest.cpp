#include "module/WorldContainerKELDIN.h"

#include "module/WORunway.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"

#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {
namespace {

TEST(WorldContainerKELDINTest, PutsWhatLiesInThePlaneFirstAndLosesNothing) {
    struct Row {
        std::vector<std::string> labels;
        std::string expected;
    };
    const Tests::ReportCapture reports;
    for (const Row& row : {
             Row{{"A", "Editor Grid", "Ground", "B", "runway", "Editor Ground", "World Grid", "C"},
                 "Ground,World Grid,runway,Editor Ground,Editor Grid,A,B,C,"},
             Row{{"A", "Editor Grid", "", "B", "runway", "Ground"}, "Ground,runway,Editor Grid,A,,B,"},
             Row{{"Ground", "A", "Ground", "World Grid"}, "Ground,World Grid,A,Ground,"},
             Row{{}, ""},
         }) {
        std::vector<std::unique_ptr<WO>> objects;
        WorldContainerKELDIN world;
        for (const std::string& label : row.labels) {
            objects.push_back(label == "runway" ? std::make_unique<WORunway>() : std::make_unique<WO>());
            objects.back()->setLabel(label);
            world.push_back(objects.back().get());
        }
        world.sort(nullptr);
        world.sort(nullptr);
        std::string order;
        for (std::size_t i = 0; i < world.size(); ++i) {
            order += world.at(i)->getLabel() + ",";
        }
        EXPECT_EQ(order, row.expected);
    }
    EXPECT_EQ(reports.count("Full sort!\n"), 4U) << "once for each world";
}

TEST(WorldContainerKELDINTest, TellsOfWhatIsOutsideOfTheView) {
    Tests::ReportCapture reports;
    const Tests::CubeFiles files;
    class Host final : public SceneHost {
    public:
        Host() { SceneHost::set(this); }
        ~Host() { SceneHost::set(nullptr); }
        Camera* getCamera() override { return &camera; }
        WorldContainer* getWorldContainer() override { return nullptr; }
        CameraStandardEZNav camera{nullptr, nullptr};
    };
    Host host;
    host.camera.setCameraAspectRatio(1);
    host.camera.updateCameraMatrices();
    WorldContainerKELDIN world;
    const auto behind = WO::New("cube.obj");
    behind->setPosition(-50, 0, 0);
    behind->setLabel("Mast");
    world.push_back(behind.get());
    reports.clear();
    world.render(&host.camera);
    EXPECT_EQ(reports.text(), "Culling Mast\n");
    EXPECT_EQ(ManagerSDLTime::timesOf(*behind).renderCount, 1);
}

} // namespace
} // namespace Vantrel
