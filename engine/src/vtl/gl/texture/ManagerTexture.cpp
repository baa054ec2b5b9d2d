#include "vtl/gl/texture/ManagerTexture.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"

#include <SDL_image.h>
#include <algorithm>
#include <mutex>
#include <utility>

namespace Vantrel {
namespace {

std::mutex texturesMutex;
std::mutex pendingMutex;
std::mutex imageLoaderMutex;

constexpr const char* setToDefault = "   Setting this texture to use the DEFAULT TEXTURE...\n";

/** What the surface holds; any other type would let GL read beyond its end. */
bool isTypeOfSurface(std::uint32_t type) {
    return type == GL_UNSIGNED_BYTE || type == GL_BYTE;
}

void resizeToRequest(TextureDataOwnsGLHandle& data, SDLSurface& surface) {
    if (surface == nullptr || (data.width == 0 && data.height == 0)) {
        return;
    }
    const auto imageWidth = static_cast<std::uint32_t>(surface->w);
    const auto imageHeight = static_cast<std::uint32_t>(surface->h);
    const std::uint32_t width = data.width != 0 ? data.width : imageWidth;
    const std::uint32_t height = data.height != 0 ? data.height : imageWidth;
    if (width != imageWidth || height != imageHeight) {
        surface = resizeImage(*surface, width, height);
        data.keepsImageSize = false;
    }
}

} // namespace

ManagerTexture::State ManagerTexture::state;

void ManagerTexture::init() {
    shutdown();
    state.defaultTextureFile =
        ManagerEnvironmentConfiguration::getSharedMultimediaPath().append("/images/DefaultTexture.bmp");
    if (!ManagerWindowing::hasContext()) {
        return;
    }
    state.defaultTexture = loadTexture(state.defaultTextureFile);
    if (state.defaultTexture == nullptr) {
        Report() << "ERROR: Failed to load DEFAULT_TEXTURE " << state.defaultTextureFile << "\n"
                 << "Default TextureDataOwnsGLHandle must be loaded for error recovery of\n"
                    "future textures\n"
                    "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
    makeDefaultWhiteTexture();
}

void ManagerTexture::shutdown() {
    state = State{};
}

void ManagerTexture::makeDefaultWhiteTexture() {
    constexpr std::uint32_t side = 2;
    constexpr std::size_t bytes = 4 * side * side;
    auto data = TextureDataOwnsGLHandle::fromPixels("DEFAULT_WHITE_TEXTURE_2X2", side,
                                                    std::vector<std::uint8_t>(bytes, 255), false);
    state.defaultWhiteTexture = std::make_unique<TextureSharesTexDataOwnsGLHandle>(data.get());
    state.defaultWhiteTexture->setMagFilter(GL_NEAREST);
    state.defaultWhiteTexture->setMinFilter(GL_NEAREST);
    state.defaultWhiteData = std::move(data);
    glBindTexture(GL_TEXTURE_2D, 0);
}

std::unique_ptr<Texture> ManagerTexture::loadTexture(const std::string& fileName, std::uint32_t width,
                                                     std::uint32_t height, bool mipmapped,
                                                     std::int32_t internalFormat, std::uint32_t format,
                                                     std::uint32_t type) {
    auto wanted = std::make_unique<TextureDataOwnsGLHandle>(fileName);
    wanted->width = width;
    wanted->height = height;
    wanted->mipmapped = mipmapped;
    wanted->internalFormat = internalFormat;
    wanted->format = format;
    wanted->type = type;
    bool isNew = false;
    TextureDataOwnsGLHandle* const data = insert(std::move(wanted), isNew);
    if (!isNew) {
        return std::make_unique<TextureSharesTexDataOwnsGLHandle>(data);
    }
    try {
        if (readAndUpload(*data)) {
            return std::make_unique<TextureSharesTexDataOwnsGLHandle>(data);
        }
    } catch (...) { // a want of memory: what has failed isn't remembered
        remove(data);
        throw;
    }
    remove(data);
    return state.defaultTexture != nullptr ? state.defaultTexture->clone() : nullptr;
}

bool ManagerTexture::readAndUpload(TextureDataOwnsGLHandle& data) {
    if (!readImage(data)) {
        return false;
    }
    if (!instantiateOpenGLTexture(&data)) {
        Report() << "ERROR: Failed to send texture '" << data.toString() << "' to graphics card...\n"
                 << "ManagerTexture is returning Default TextureDataOwnsGLHandle pointer...\n";
        return false;
    }
    return true;
}

TextureDataOwnsGLHandle* ManagerTexture::insert(std::unique_ptr<TextureDataOwnsGLHandle> data, bool& isNew) {
    const std::scoped_lock lock(texturesMutex);
    auto place = std::find_if(state.textures.begin(), state.textures.end(),
                              [&](const auto& known) { return known->key() >= data->key(); });
    // Images of one key stand together, but whether two of them are equal is no matter of order alone.
    auto behind = place;
    for (; behind != state.textures.end() && (*behind)->key() == data->key(); ++behind) {
        const std::weak_ordering order = compareTextureData(**behind, *data);
        if (order == 0) {
            isNew = false;
            return behind->get();
        }
        place = order < 0 ? behind + 1 : place;
    }
    isNew = true;
    return state.textures.insert(place, std::move(data))->get();
}

void ManagerTexture::remove(const TextureDataOwnsGLHandle* data) {
    takePending(data);
    const std::scoped_lock lock(texturesMutex);
    std::erase_if(state.textures, [data](const auto& known) { return known.get() == data; });
}

bool ManagerTexture::readImage(TextureDataOwnsGLHandle& data) {
    const auto longestSide = static_cast<std::uint32_t>(ManagerOpenGLState::getCapabilities().maxTextureSize);
    SDLSurface surface;
    {
        const std::scoped_lock lock(imageLoaderMutex);
        surface = readImageFile(data.fileName, longestSide);
    }
    if (surface == nullptr) {
        Report() << "ERROR: SDL_Image Failed to load texture: " << data.fileName << "\n"
                 << setToDefault << "IMG_Load: " << IMG_GetError() << "\n";
        return false;
    }
    {
        const std::scoped_lock lock(imageLoaderMutex);
        surface = convertToGLCoordinates(std::move(surface));
        resizeToRequest(data, surface);
    }
    if (surface == nullptr) {
        Report() << "ERROR: Could not convert from SDL_Image Coords to OpenGL Tex coords\n"
                 << "   for image: '" << data.fileName << "'...\n"
                 << setToDefault;
        return false;
    }
    const std::scoped_lock lock(pendingMutex);
    state.pendingTextures.push_back({&data, std::move(surface)});
    return true;
}

ManagerTexture::PendingTexture ManagerTexture::takePending(const TextureDataOwnsGLHandle* data) {
    const std::scoped_lock lock(pendingMutex);
    const auto found =
        std::find_if(state.pendingTextures.begin(), state.pendingTextures.end(),
                     [data](const auto& pending) { return data == nullptr || pending.data == data; });
    if (found == state.pendingTextures.end()) {
        return {};
    }
    PendingTexture taken = std::move(*found);
    state.pendingTextures.erase(found);
    return taken;
}

bool ManagerTexture::instantiateOpenGLTexture(TextureDataOwnsGLHandle* data) {
    const PendingTexture pending = takePending(data);
    if (pending.data == nullptr) {
        if (data != nullptr) {
            Report() << "ERROR: ManagerTexture::instantiateOpenGLTexture failed to find \n"
                     << "texture '" << data->toString() << "' in queue of preprocessed \n"
                     << "textures ready to send "
                     << "to OpenGL...\n";
        }
        return false;
    }
    return pending.surface != nullptr && upload(*pending.data, *pending.surface);
}

bool ManagerTexture::upload(TextureDataOwnsGLHandle& data, const SDL_Surface& surface) {
    data.width = static_cast<std::uint32_t>(surface.w);
    data.height = static_cast<std::uint32_t>(surface.h);
    if (!isTypeOfSurface(data.type) || !data.upload(surface.pixels)) {
        return false;
    }
    constexpr std::uint64_t bytesPerPixel = 4;
    state.totalBytesUsed +=
        std::uint64_t{data.width} * data.height * bytesPerPixel * (data.mipmapped ? 2 : 1);
    return true;
}

void ManagerTexture::update() {
    constexpr std::uint32_t uploadIntervalMs = 500;
    state.timeSinceLastUpload += ManagerSDLTime::getFrameDeltaMs();
    if (state.timeSinceLastUpload >= uploadIntervalMs) {
        state.timeSinceLastUpload = 0;
        instantiateOpenGLTexture(nullptr);
    }
}

std::string ManagerTexture::toString() {
    ReportText text;
    text << "ManagerTexture:\n";
    for (std::size_t i = 0; i < state.textures.size(); ++i) {
        text << "   [" << i << "] " << state.textures[i]->toString() << "\n";
    }
    text << "Total Bytes Used: " << state.totalBytesUsed << "\n";
    return text.str();
}

} // namespace Vantrel
