#pragma once

#include "vtl/gl/texture/ImageFile.h"
#include "vtl/gl/texture/Texture.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

/**
 * Keeps one image on the card for each image that is asked for, and hands out textures on it. A load that
 * fails gives the default texture. Images stay on the card until `shutdown`.
 *
 * Files are read and converted without GL and handed over by a queue, so that a loader may run beside the
 * main thread; today everything runs on the main thread.
 */
class ManagerTexture {
public:
    /** Loads the default textures; ends the process after a key where the default image can't be read. */
    static void init();
    /** Deletes all images; the context must still be there. */
    static void shutdown();

    /**
     * A new texture on the image in `fileName`, which is read unless it has been before. 0 by 0 is the
     * image's own size; a width alone makes it square. On failure, which is reported, a copy of the default
     * texture; the next request reads the file again. Null only while there is no default texture.
     */
    static std::unique_ptr<Texture> loadTexture(const std::string& fileName, std::uint32_t width,
                                                std::uint32_t height, bool mipmapped,
                                                std::int32_t internalFormat, std::uint32_t format,
                                                std::uint32_t type);
    /** The same in the image's own size, with mipmaps, four bytes a pixel. */
    static std::unique_ptr<Texture> loadTexture(const std::string& fileName) {
        return loadTexture(fileName, 0, 0, true, GL_RGBA, GL_RGBA, GL_UNSIGNED_BYTE);
    }

    /**
     * Reads and converts the file of `data` and appends it to the queue, where it must outlive the sending;
     * false on failure, which is reported.
     */
    static bool readImage(TextureDataOwnsGLHandle& data);
    /** Sends an image of the queue to the card, the oldest for null; it stays bound. False on failure. */
    static bool instantiateOpenGLTexture(TextureDataOwnsGLHandle* data);
    /** Once per frame: every half second sends one image of the queue to the card. */
    static void update();

    /** All images, with the sum of what was uploaded. */
    static std::string toString();
    /** What stands in for images that can't be loaded; null before `init`. */
    static const Texture* getDefaultTexture() { return state.defaultTexture.get(); }
    /** Two by two white pixels, so that a shader always has a first texture; null before `init`. */
    static const Texture* getDefaultWhiteTexture() { return state.defaultWhiteTexture.get(); }
    /** Full path of the default texture's file. */
    static const std::string& getDefaultTextureFile() { return state.defaultTextureFile; }
    /** Bytes uploaded so far. */
    static std::uint64_t getTotalBytesUsed() { return state.totalBytesUsed; }

private:
    struct PendingTexture {
        TextureDataOwnsGLHandle* data = nullptr;
        SDLSurface surface;
    };
    struct State {
        /** By `compareTextureData`. */
        std::vector<std::unique_ptr<TextureDataOwnsGLHandle>> textures;
        std::deque<PendingTexture> pendingTextures;
        std::unique_ptr<TextureDataOwnsGLHandle> defaultWhiteData;
        std::unique_ptr<Texture> defaultTexture;
        std::unique_ptr<Texture> defaultWhiteTexture;
        std::string defaultTextureFile;
        std::uint64_t totalBytesUsed = 0;
        std::uint32_t timeSinceLastUpload = 0;
    };

    static void makeDefaultWhiteTexture();
    static TextureDataOwnsGLHandle* insert(std::unique_ptr<TextureDataOwnsGLHandle> data, bool& isNew);
    static bool readAndUpload(TextureDataOwnsGLHandle& data);
    static void remove(const TextureDataOwnsGLHandle* data);
    static PendingTexture takePending(const TextureDataOwnsGLHandle* data);
    static bool upload(TextureDataOwnsGLHandle& data, const SDL_Surface& surface);

    static State state;
};

} // namespace Vantrel
