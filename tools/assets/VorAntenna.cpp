#include "tools/assets/VorAntenna.h"

#include "tools/assets/SolidBuilder.h"

#include <cmath>
#include <numbers>

namespace Assets {
namespace {

/** What the viewer multiplies each coordinate by. */
constexpr Point antennaScale{0.007515011F, 0.007767292F, 0.11129661F};
constexpr Point counterpoiseScale{0.007515011F, 0.007767292F, 0.056433409F};

constexpr Color steel = bytes(152, 158, 162);
constexpr Color white = bytes(236, 236, 232);
constexpr Color orange = bytes(226, 96, 30);
constexpr Color red = bytes(214, 34, 28);
constexpr Color dark = bytes(74, 80, 86);

/** Work on a model of radius 1 and height 1 is done with this; then each is made as large as it shall be. */
std::vector<MaterialMesh> madeFor(std::vector<MaterialMesh> meshes, const Point& scale) {
    for (MaterialMesh& mesh : meshes) {
        for (Point& vertex : mesh.model.vertices) {
            vertex = {vertex.x / scale.x, vertex.y / scale.y, vertex.z / scale.z};
        }
    }
    return meshes;
}

Point around(float radius, float turn) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(turn);
    return {radius * static_cast<float>(std::cos(angle)), radius * static_cast<float>(std::sin(angle)), 0};
}

template <class Add>
void addRing(int count, float radius, const Add& add) {
    for (int i = 0; i < count; ++i) {
        add(around(radius, static_cast<float>(i) / static_cast<float>(count)));
    }
}

/** A white housing with a domed top on a post. */
void addRadome(SolidBuilder& housing, const Point& place, float radius, float bottom, float top, int sides) {
    const float shoulder = bottom + (top - bottom) * 0.62F;
    const std::array<OutlinePoint, 3> side{
        {{radius * 0.55F, bottom}, {radius, bottom}, {radius * 0.93F, shoulder}}};
    housing.addTurned(place.x, place.y, sides, side);
    std::array<OutlinePoint, 5> dome;
    for (std::size_t i = 0; i < dome.size(); ++i) {
        const float angle = std::numbers::pi_v<float> / 2 * static_cast<float>(i) / (dome.size() - 1);
        dome[i] = {i + 1 < dome.size() ? 0.93F * radius * std::cos(angle) : 0,
                   shoulder + (top - shoulder) * std::sin(angle)};
    }
    housing.addTurnedSmooth(place.x, place.y, sides, dome);
}

TriangleModel columnsAndBeams() {
    constexpr float beamMiddle = 0.93F;
    constexpr float beamHalfHeight = 0.035F;
    TriangleModel model;
    SolidBuilder builder(model);
    for (const auto& [count, radius] : {std::pair(24, 0.93F), std::pair(12, 0.62F), std::pair(8, 0.33F)}) {
        addRing(count, radius, [&](const Point& at) { builder.addPost(at.x, at.y, 0.008F, 0, 0.9F, 8); });
        const std::array<OutlinePoint, 5> girder{{{radius - 0.008F, 0.89F},
                                                  {radius + 0.008F, 0.89F},
                                                  {radius + 0.008F, 0.965F},
                                                  {radius - 0.008F, 0.965F},
                                                  {radius - 0.008F, 0.89F}}};
        builder.addTurned(0, 0, 48, girder);
    }
    addRing(24, 1, [&](const Point& outwards) {
        const Point across{-outwards.y, outwards.x, 0};
        builder.addBox(outwards * 0.56F + Point{0, 0, beamMiddle}, outwards * 0.42F, across * 0.006F,
                       {0, 0, beamHalfHeight});
    });
    return model;
}

TriangleModel shelterWalls() {
    TriangleModel model;
    SolidBuilder(model).addBox({0, 0, 0.42F}, {0.19F, 0, 0}, {0, 0.13F, 0}, {0, 0, 0.42F});
    return model;
}

TriangleModel shelterFittings() {
    TriangleModel model;
    SolidBuilder builder(model);
    builder.addBox({0, 0, 0.86F}, {0.205F, 0, 0}, {0, 0.145F, 0}, {0, 0, 0.02F});          // roof
    builder.addBox({0.191F, 0.03F, 0.33F}, {0.002F, 0, 0}, {0, 0.035F, 0}, {0, 0, 0.31F}); // door
    builder.addBox({-0.1F, 0.131F, 0.55F}, {0.03F, 0, 0}, {0, 0.002F, 0}, {0, 0, 0.1F});   // vent
    return model;
}

/** One half of the plates around the edge: every other one. */
TriangleModel rimPlates(int first) {
    constexpr int plates = 48;
    constexpr float bottom = 0.88F;
    constexpr float inner = 0.955F;
    constexpr float outer = 0.975F; // at the top: what leans back is lit from above
    TriangleModel model;
    for (int i = first; i < plates; i += 2) {
        const float from = static_cast<float>(i) / plates;
        const float to = static_cast<float>(i + 1) / plates;
        const Point low{0, 0, bottom};
        const Point high{0, 0, 1};
        const Point a = around(outer, from);
        const Point b = around(outer, to);
        const Point c = around(inner, from);
        const Point d = around(inner, to);
        model.addQuad({{around(1, from) + low, around(1, to) + low, b + high, a + high}});
        model.addQuad({{d + low, c + low, c + high, d + high}});
        // A little narrower than the sides: shared normals would round the edge.
        model.addQuad({{mix(a, c, 0.01F) + high, mix(b, d, 0.01F) + high, mix(b, d, 0.99F) + high,
                        mix(a, c, 0.99F) + high}});
    }
    return model;
}

TriangleModel meshDeck() {
    constexpr float height = 0.975F;
    constexpr float repeats = 18;
    constexpr int rings = 6;
    std::array<OutlinePoint, rings + 1> outline;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        outline[i] = {0.97F * (1 - static_cast<float>(i) / rings), height};
    }
    TriangleModel model;
    SolidBuilder(model).addTurnedSmooth(0, 0, 96, outline);
    for (TexturePoint& point : model.texturePoints) {
        point = {point.u * repeats, point.v * repeats};
    }
    return model;
}

TriangleModel antennaPosts() {
    TriangleModel model;
    SolidBuilder builder(model);
    builder.addPost(0, 0, 0.016F, 0, 0.4F, 12);
    builder.addPost(0, 0, 0.05F, 0, 0.03F, 16);
    addRing(48, 0.45F, [&](const Point& at) {
        builder.addPost(at.x, at.y, 0.007F, 0, 0.36F, 6);
        builder.addPost(at.x, at.y, 0.02F, 0, 0.025F, 8);
    });
    return model;
}

TriangleModel radomes() {
    TriangleModel model;
    SolidBuilder builder(model);
    addRadome(builder, {}, 0.046F, 0.38F, 1.0F, 24);
    addRing(48, 0.45F, [&](const Point& at) { addRadome(builder, at, 0.021F, 0.34F, 0.82F, 12); });
    return model;
}

/** Posts at the edge; with eight sides the outermost points are those of the axes. */
TriangleModel edgePosts() {
    TriangleModel model;
    SolidBuilder builder(model);
    addRing(8, 0.992F, [&](const Point& at) { builder.addPost(at.x, at.y, 0.008F, 0, 0.5F, 8); });
    addRing(8, 0.992F, [&](const Point& at) {
        builder.addBox(at + Point{0, 0, 0.44F}, at * 0.003F, Point{-at.y, at.x, 0} * 0.04F, {0, 0, 0.012F});
    });
    return model;
}

TriangleModel obstructionLights() {
    TriangleModel model;
    SolidBuilder builder(model);
    addRing(4, 0.992F, [&](const Point& at) { addRadome(builder, at, 0.0078F, 0.5F, 0.6F, 8); });
    return model;
}

} // namespace

std::vector<MaterialMesh> vorCounterpoise() {
    std::vector<MaterialMesh> meshes;
    meshes.push_back({"1 steel", steel, "", columnsAndBeams()});
    meshes.push_back({"2 walls", white, "", shelterWalls()});
    meshes.push_back({"3 fittings", dark, "", shelterFittings()});
    meshes.push_back({"4 orange", orange, "", rimPlates(0)});
    meshes.push_back({"5 white", white, "", rimPlates(1)});
    meshes.push_back({"6 mesh", {1, 1, 1}, "vorMesh.png", meshDeck()}); // last, over what shows through it
    return madeFor(std::move(meshes), counterpoiseScale);
}

std::vector<MaterialMesh> vorAntennas() {
    std::vector<MaterialMesh> meshes;
    meshes.push_back({"1 steel", steel, "", antennaPosts()});
    meshes.push_back({"2 radome", white, "", radomes()});
    meshes.push_back({"3 edge", orange, "", edgePosts()});
    meshes.push_back({"4 lights", red, "", obstructionLights()});
    return madeFor(std::move(meshes), antennaScale);
}

} // namespace Assets
