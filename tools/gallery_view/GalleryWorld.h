#pragma once

#include "vtl/scene/light/MGLSkyBox.h"
#include "vtl/scene/object/WO.h"

#include <map>
#include <string>
#include <vector>

namespace Vantrel {

class WorldContainer;

/** What the gallery shows. Objects stand in groups, of which a picture shows one. */
class GalleryWorld {
public:
    /** The world owns the objects. */
    GalleryWorld(WorldContainer& world, MGLSkyBox::CameraHolder cameraHolder);

    /** Shows the objects of that group and of none else. */
    void show(const std::string& group) const;

private:
    void addSkyAndLight(MGLSkyBox::CameraHolder cameraHolder);
    void addAirport();
    void addRunway();
    void addVor();
    void addLocalizer();
    /** A group of that name: an image on a board, as wide as that many times its height. */
    void addBoard(const std::string& name, const std::string& image, float aspect);
    void addBoards();

    /** Takes an object into the world and into the group in hand. */
    WO& add(std::unique_ptr<WO> object, const Vector& position);
    WO& addModel(const std::string& file, const Vector& scale, MESH_SHADING_TYPE shading,
                 const Vector& position);

    WorldContainer& world;
    std::string shared;
    std::string local;
    std::string groupInHand;
    std::map<std::string, std::vector<WO*>> groups;
};

} // namespace Vantrel
