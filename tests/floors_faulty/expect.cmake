execute_process(COMMAND "${CHECK}" "${TREE}" OUTPUT_VARIABLE said RESULT_VARIABLE result)
foreach(line IN ITEMS
    "engine/src/vtl/base/Low.h:1: may not include vtl/net/Session.h"
    "engine/src/vtl/render/Renderer.cpp:3: may not include vtl/shell/GLView.h"
    "client/Client.cpp:1: may not include vtl/gl/Window.h"
    "tools/floors.allow: engine/src/vtl/net/Gone.cpp doesn't need to stand here"
    "4 files, 4 faults")
  if(NOT said MATCHES "${line}")
    message(SEND_ERROR "missing: ${line}\n${said}")
  endif()
endforeach()
if(NOT result EQUAL 1)
  message(SEND_ERROR "exit code ${result}")
endif()
