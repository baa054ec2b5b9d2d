#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel {

/**
 * The process-wide table of settings: texts by key, filled in three layers of which each overrides the one
 * before (built-in defaults, configuration file, command line), and turned into a number or a truth value
 * where it is read. Keys are compared byte by byte. Filled on the main thread; read-only afterwards.
 */
class ManagerEnvironmentConfiguration {
public:
    /** Starts afresh with the built-in defaults. */
    static void init();
    static void shutdown();

    /**
     * Overrides with the `key=value` lines of `text`; nothing is trimmed, `#` in the first column begins a
     * comment, and of two lines with one key the last counts.
     */
    static void populateFromText(std::string_view text);

    /**
     * Overrides with the lines of a file. The file is looked for under `fileName` as it stands, then under
     * each directory + `fileName`. Not found, it costs one pause, and what is stored stands.
     */
    static void populateFromFile(const std::string& fileName,
                                 const std::vector<std::string>& additionalSearchDirectories);

    /** Overrides with the arguments of the form `{key=value}`; others are passed over. */
    static void populateFromCommandLine(const std::vector<std::string>& args);

    /** The value that the arguments give a key by `{key=value}`, without storing it; empty when they give
     * none. */
    static std::string getCommandLineValue(const std::vector<std::string>& args, std::string_view key);

    /** One line an entry, in the order of the keys: `'key' = 'value'`. */
    static std::string toString();

    /** The text stored under `key`; empty when there is none. */
    static std::string getVariableValue(std::string_view key);

    /** Signed integer at the start of the value; 0 without one. */
    static int getInt(std::string_view key);
    /** Unsigned integer at the start of the value; 0 without one. */
    static std::uint32_t getUnsigned(std::string_view key);
    /** Float at the start of the value; 0 without one. */
    static float getFloat(std::string_view key);
    /** False when the value in lower case is "false" or "0"; true otherwise, also when it is empty or
     * missing. */
    static bool getBool(std::string_view key);
    /** True for every text but "0". */
    static bool isNotZeroText(std::string_view key);

    /** Window size in pixels, at least 1. */
    static int getWidth();
    static int getHeight();
    static bool isFullscreen();
    /** Shortest time of a frame in milliseconds, never negative. */
    static std::uint32_t getMinMillisecPerFrame();
    /** Root of the application's own data; a name is appended as it stands. */
    static std::string getLocalMultimediaPath();
    /** Root of the engine's data; a name is appended as it stands. */
    static std::string getSharedMultimediaPath();
    /** Requested GL version: 2 and 1 when the value is empty, minor 0 without a point. */
    static int getGLContextMajorVersion();
    static int getGLContextMinorVersion();
    static bool isGLProfileCompatibility();
    static bool isGLProfileCore();
    static bool isGLProfileES();
    static bool isGLDebugMessageCallbackEnabled();
};

} // namespace Vantrel
