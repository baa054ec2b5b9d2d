#include "vtl/gl/SDLReport.h"

#include <SDL.h>
#include <array>

namespace Vantrel {
namespace {

struct AttributeName {
    SDL_GLattr attribute;
    const char* name;
};

constexpr std::array<AttributeName, 19> attributeNames{{
    {SDL_GL_RED_SIZE, "SDL_GL_RED_SIZE"},
    {SDL_GL_GREEN_SIZE, "SDL_GL_GREEN_SIZE"},
    {SDL_GL_BLUE_SIZE, "SDL_GL_BLUE_SIZE"},
    {SDL_GL_ALPHA_SIZE, "SDL_GL_ALPHA_SIZE"},
    {SDL_GL_BUFFER_SIZE, "SDL_GL_BUFFER_SIZE"},
    {SDL_GL_DOUBLEBUFFER, "SDL_GL_DOUBLEBUFFER"},
    {SDL_GL_DEPTH_SIZE, "SDL_GL_DEPTH_SIZE"},
    {SDL_GL_STENCIL_SIZE, "SDL_GL_STENCIL_SIZE"},
    {SDL_GL_ACCUM_RED_SIZE, "SDL_GL_ACCUM_RED_SIZE"},
    {SDL_GL_ACCUM_GREEN_SIZE, "SDL_GL_ACCUM_GREEN_SIZE"},
    {SDL_GL_ACCUM_BLUE_SIZE, "SDL_GL_ACCUM_BLUE_SIZE"},
    {SDL_GL_ACCUM_ALPHA_SIZE, "SDL_GL_ACCUM_ALPHA_SIZE"},
    {SDL_GL_STEREO, "SDL_GL_STEREO"},
    {SDL_GL_MULTISAMPLEBUFFERS, "SDL_GL_MULTISAMPLEBUFFERS"},
    {SDL_GL_MULTISAMPLESAMPLES, "SDL_GL_MULTISAMPLESAMPLES"},
    {SDL_GL_ACCELERATED_VISUAL, "SDL_GL_ACCELERATED_VISUAL"},
    {SDL_GL_CONTEXT_MAJOR_VERSION, "SDL_GL_CONTEXT_MAJOR_VERSION"},
    {SDL_GL_CONTEXT_MINOR_VERSION, "SDL_GL_CONTEXT_MINOR_VERSION"},
    {SDL_GL_CONTEXT_PROFILE_MASK, "SDL_GL_CONTEXT_PROFILE_MASK"},
}};

void writeModes(ReportText& out, int display) {
    const int modes = SDL_GetNumDisplayModes(display);
    if (modes < 0) {
        out << "   Failed to get number of display modes. SDL Reported error is \"" << takeSDLError()
            << "\"...\n";
        return;
    }
    out << "   Number of available modes for this display:" << modes << "\n";
    for (int i = 0; i < modes; ++i) {
        SDL_DisplayMode mode{};
        SDL_GetDisplayMode(display, i, &mode);
        out << "   Display mode" << i << ": " << mode.w << " x " << mode.h << ", "
            << SDL_BITSPERPIXEL(mode.format) << " bpp, \"" << SDL_GetPixelFormatName(mode.format) << "\"\n";
    }
}

void writeDisplay(ReportText& out, int display) {
    SDL_DisplayMode mode{};
    if (SDL_GetCurrentDisplayMode(display, &mode) != 0) {
        out << "ERROR Getting Display" << display << " information. Reported error is\"" << takeSDLError()
            << "\"...\n";
        return;
    }
    out << "Display" << display << ": Width x Height is " << mode.w << " x " << mode.h << ", "
        << mode.refresh_rate << " Hz...\n";
    writeModes(out, display);
}

} // namespace

std::string takeSDLError() {
    std::string error = SDL_GetError();
    SDL_ClearError();
    return error;
}

void writeGLAttributes(ReportText& out) {
    for (const AttributeName& entry : attributeNames) {
        int value = 0;
        const int answer = SDL_GL_GetAttribute(entry.attribute, &value);
        out << entry.name << "(successful query, &value):" << answer << ", " << value << " SDL_GetError: '"
            << takeSDLError() << "'...\n";
    }
}

void writeDisplays(ReportText& out) {
    const int displays = SDL_GetNumVideoDisplays();
    out << "SDL_GetNumVideoDisplays:" << displays << "\n";
    if (displays < 1) {
        out << "SDL_GetNumVideoDisplays was less than 1. No display found. SDL Reports \"" << takeSDLError()
            << "\"...\n";
    }
    for (int display = 0; display < displays; ++display) {
        writeDisplay(out, display);
    }
}

} // namespace Vantrel
