# On Windows the plug-in is built against the host's own SDK, which is looked for where its installer says
# that it is. ADSK_3DSMAX_SDK_2019 and MAXSDK_DIR name the folder "maxsdk" or the one above it.
if(MSVC)
  find_path(ORV_HOST_SDK_INCLUDE NAMES plugapi.h
    HINTS ENV ADSK_3DSMAX_SDK_2019 ENV MAXSDK_DIR
    PATHS "C:/Program Files/Autodesk/3ds Max 2019 SDK"
    PATH_SUFFIXES include maxsdk/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
    DOC "Folder of the host's SDK headers")
  if(NOT ORV_HOST_SDK_INCLUDE)
    message(FATAL_ERROR "The SDK of 3ds Max 2019 was not found. Install it, and set ADSK_3DSMAX_SDK_2019 to "
      "its folder \"maxsdk\".")
  endif()
endif()
