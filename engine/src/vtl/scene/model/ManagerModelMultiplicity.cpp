#include "vtl/scene/model/ManagerModelMultiplicity.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/parser/ModelParser3DS.h"
#include "vtl/scene/parser/ModelParserOBJ.h"
#include "vtl/scene/parser/ModelParserVRML.h"

#include <algorithm>
#include <array>
#include <exception>
#include <map>
#include <utility>

namespace Vantrel {
namespace {

struct FileKind {
    std::string_view ending;
    ManagerModelMultiplicity::MakeParser makeParser;
};

std::array<FileKind, 3> fileKinds{{{".wrl", newModelParser<ModelParserVRML>},
                                   {".3ds", newModelParser<ModelParser3DS>},
                                   {".obj", newModelParser<ModelParserOBJ>}}};

using Masters = std::map<ModelDataSharedID, std::unique_ptr<ModelDataShared>, ModelDataSharedIDOrder>;

// Never destroyed: a model that outlives `main` still asks to be released.
Masters& masters() {
    static Masters* const only = new Masters;
    return *only;
}

std::string lowerCased(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

std::unique_ptr<ModelDataShared> readMaster(const ModelDataSharedID& id, MESH_SHADING_TYPE shadingType) {
    const std::string name = lowerCased(id.fileName);
    const auto kind = std::find_if(fileKinds.begin(), fileKinds.end(), [&](const FileKind& candidate) {
        return name.find(candidate.ending) != std::string::npos;
    });
    if (kind == fileKinds.end() || kind->makeParser == nullptr) {
        return nullptr;
    }
    try {
        return kind->makeParser(id.fileName, id.scale, shadingType)->parse();
    } catch (const std::exception& exception) { // the file is too large for the memory, most likely
        Report() << "WARNING: ManagerModelMultiplicity, '" << id.fileName << "': " << exception.what()
                 << "...\n";
        return nullptr;
    }
}

[[noreturn]] void refuseFile(const std::string& fileName) {
    Report() << "ManagerModelMultiplicity Failed to load file '" << fileName << "'...\n"
             << "Press ENTER to exit...\n";
    Pause::exitAfterKey();
}

} // namespace

void ManagerModelMultiplicity::init() {
    if (ManagerOpenGLState::areVertexBuffersSupported()) {
        Report() << "Your graphics card supports VBOs...\n";
    } else {
        Report() << "NO SUPPORT for Server-side Vertex Buffer Objects (VBOs)...\n"
                 << "Using Client-side Vertex Arrays (VAs)...\n";
    }
}

void ManagerModelMultiplicity::shutdown() {
    while (!masters().empty()) {
        masters().erase(masters().begin());
    }
}

void ManagerModelMultiplicity::getModelData(std::unique_ptr<ModelDataShared>& out,
                                            const std::string& fileName, const Vector& scale,
                                            MESH_SHADING_TYPE shadingType) {
    ModelDataSharedID id(fileName, scale);
    auto entry = masters().find(id);
    if (entry == masters().end()) {
        std::unique_ptr<ModelDataShared> master = readMaster(id, shadingType);
        if (!master) {
            refuseFile(fileName);
        }
        master->id = id;
        master->sendToServer();
        entry = masters().emplace(std::move(id), std::move(master)).first;
    }
    ++entry->second->id.referenceCount;
    out = std::make_unique<ModelDataShared>(*entry->second);
    out->isCounted = true;
}

void ManagerModelMultiplicity::release(const ModelDataShared& instance) {
    const auto entry = masters().find(instance.id);
    const bool isSameReading =
        entry != masters().end() && &entry->second->getComposite() == &instance.getComposite();
    if (isSameReading && --entry->second->id.referenceCount == 0) {
        masters().erase(entry);
    }
}

ManagerModelMultiplicity::MakeParser ManagerModelMultiplicity::setParser(std::string_view ending,
                                                                         MakeParser make) {
    const auto kind = std::find_if(fileKinds.begin(), fileKinds.end(),
                                   [&](const FileKind& candidate) { return candidate.ending == ending; });
    return kind != fileKinds.end() ? std::exchange(kind->makeParser, make) : nullptr;
}

} // namespace Vantrel
