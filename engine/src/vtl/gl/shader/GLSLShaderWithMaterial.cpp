#include "vtl/gl/shader/GLSLShaderWithMaterial.h"

namespace Vantrel {

void GLSLShaderWithMaterial::addMaterialUniforms() {
    firstOfMaterial = uniforms.size();
    addUniform("TexMat0", utMAT4);
    addUniform("MVPMat", utMAT4);
    addUniform("TexUnit0", utSAMPLER2D);
    addUniform("Material.Ka", utVEC4);
    addUniform("Material.Kd", utVEC4);
    addUniform("Material.Ks", utVEC4);
    addUniform("Material.SpecularCoeff", utFLOAT);
}

} // namespace Vantrel
