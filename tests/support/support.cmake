target_sources(quillon_test_support PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/NetNamespace.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProgramRun.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ScriptedPrompt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TestDirs.cpp
)
