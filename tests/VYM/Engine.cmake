# The rooms of floors 3 and 4.
foreach(room CheckRun FileAssembly ModelDependCheckVer vymDevInfo vymPackets vymProtocol vymThread)
  file(GLOB sources CONFIGURE_DEPENDS ${room}_test.cpp ${room}_*_test.cpp)
  vymkit_add_test(${room}_test SOURCES ${sources} LIBS test_support vym_engine)
endforeach()
