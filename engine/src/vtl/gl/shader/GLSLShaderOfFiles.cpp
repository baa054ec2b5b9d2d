#include "vtl/gl/shader/GLSLShaderOfFiles.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/gl/shader/ManagerShader.h"

namespace Vantrel {

const GLSLShaderDataShared* loadSharedShader(const std::string& vertexFile, const std::string& fragmentFile) {
    const std::string path = ManagerEnvironmentConfiguration::getSharedMultimediaPath();
    return ManagerShader::loadShader(path + vertexFile, path + fragmentFile);
}

} // namespace Vantrel
