#pragma once

#include "vtl/shell/GLView.h"

namespace Vantrel {

/** The navaid viewer: the application on top of the engine. */
class GLViewKELDIN : public GLView {
public:
    /**
     * Builds the viewer and starts it up. The configuration file is "vantrel.conf", or the one that the
     * argument
     * `{configurationfile=...}` names.
     */
    static std::unique_ptr<GLView> New(const std::vector<std::string>& args);

    using GLView::GLView;

    void loadMap() override;
    void onCreate() override;
};

} // namespace Vantrel
