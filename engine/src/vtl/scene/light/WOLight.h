#pragma once

#include "vtl/math/vtlColor4f.h"
#include "vtl/scene/object/WO.h"

#include <GL/glew.h>
#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/**
 * A light of the scene, at a place or from afar. It stays first in sorted lists and is never culled. Setters
 * also tell the fixed functions, where those light the scene. Main thread.
 */
class WOLight : public WO {
public:
    static std::string getClassName() { return "WOLight"; }
    /** `color` is what shaders see; the fixed functions take the three others. */
    static std::unique_ptr<WOLight> New(const vtlColor4f& color, const vtlColor4f& diffuse,
                                        const vtlColor4f& ambient, const vtlColor4f& specular);

    /** Joins the lights of `ManagerLight`. */
    WOLight(const vtlColor4f& color_, const vtlColor4f& diffuse_, const vtlColor4f& ambient_,
            const vtlColor4f& specular_);
    ~WOLight() override;

    using WO::setPosition;
    /** Where the light is; for one from afar, on the fixed-function path, the direction to it. */
    void setPosition(const Vector& place) override;
    using WO::onCreate;
    void onCreate() override;

    void setAmbient(const vtlColor4f& value);
    void setDiffuse(const vtlColor4f& value);
    void setSpecular(const vtlColor4f& value);
    /** Of the light's strength at distance d: 1 / (constant + linear d + quadratic d d). */
    void setConstantAttenuation(float value);
    void setLinearAttenuation(float value);
    void setQuadraticAttenuation(float value);
    /** False for a light from afar. On the shader path that one shines where the object looks. */
    void setIsPositional(bool positional) { isPositional = positional; }
    bool getIsPositional() const { return isPositional; }
    void setColor(const vtlColor4f& value) { color = value; }
    const vtlColor4f& getColor() const { return color; }
    /** Which light of the fixed functions this is, from 0. */
    std::int32_t getLightIndex() const { return lightIndex; }
    void setLightIndex(std::int32_t index) { lightIndex = index; }
    /** Tells the fixed functions everything; the view must be the current matrix. */
    void writeFixedFunction();
    /** Whether the frame ends with a lens flare where the light is to be seen. */
    void setLensFlareEnabled(bool enabled) { lensFlareEnabled = enabled; }
    bool isLensFlareEnabled() const { return lensFlareEnabled; }
    /** Draws it, enabled or not. A light whose model isn't an `MGLLight` has none. */
    void renderLensFlare(Camera* camera);

private:
    /** Whether there is a light of the fixed functions for this one. */
    bool isFixedFunctionLight() const;
    GLenum lightOfGL() const { return static_cast<GLenum>(GL_LIGHT0 + lightIndex); }
    void send(GLenum name, const vtlColor4f& value) const;
    void send(GLenum name, float value) const;

    bool lensFlareEnabled = false;
    vtlColor4f color;
    vtlColor4f diffuse;
    vtlColor4f ambient;
    vtlColor4f specular;
    std::int32_t lightIndex = 0;
    bool isPositional = true;
    float constantAttenuation = 1.0F;
    float linearAttenuation = 0.0F;
    float quadraticAttenuation = 0.0F;
};

} // namespace Vantrel
