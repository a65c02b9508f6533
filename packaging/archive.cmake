# Packs the staging folder: a zip of a tree for Windows, a tar archive of the sources. CPack's own
# archives have their files in the order of the folder and with their owners.
get_filename_component(name ${CPACK_TEMPORARY_DIRECTORY} NAME)
set(archive ${CPACK_PACKAGE_DIRECTORY}/${name})
set(sorted COMMAND find ${name} ! -type d COMMAND sort)
if(name MATCHES "windows")
  set(archive ${archive}.zip)
  execute_process(${sorted} COMMAND zip -q -9 -X -D -@ ${archive}
    WORKING_DIRECTORY ${CPACK_TOPLEVEL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
else()
  set(archive ${archive}.tar.xz)
  execute_process(${sorted} COMMAND tar --create --xz --file ${archive} --files-from - --format=gnu
      --owner=0 --group=0 --numeric-owner
    WORKING_DIRECTORY ${CPACK_TOPLEVEL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
endif()
