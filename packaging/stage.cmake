# Runs between installing into the staging folder and packing it.
set(seconds $ENV{SOURCE_DATE_EPOCH})

# Of the sources, only what belongs to them.
if(CPACK_INSTALLED_DIRECTORIES)
  list(GET CPACK_INSTALLED_DIRECTORIES 0 source)
  if(EXISTS ${source}/.git)
    execute_process(COMMAND git ls-files --others WORKING_DIRECTORY ${source}
      OUTPUT_VARIABLE strangers COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "\n" ";" strangers "${strangers}")
    foreach(stranger IN LISTS strangers)
      file(REMOVE ${CPACK_TEMPORARY_DIRECTORY}/${stranger})
    endforeach()
  endif()
endif()

file(GLOB_RECURSE files LIST_DIRECTORIES true RELATIVE ${CPACK_TEMPORARY_DIRECTORY}
  ${CPACK_TEMPORARY_DIRECTORY}/*)
list(SORT files)

if(CPACK_GENERATOR STREQUAL "DEB")
  foreach(file IN LISTS files)
    if(file MATCHES "/man1/|/changelog$")
      execute_process(COMMAND gzip -9n ${CPACK_TEMPORARY_DIRECTORY}/${file} COMMAND_ERROR_IS_FATAL ANY)
    endif()
  endforeach()
endif()

# The setup's list of files, in an order of its own and not in that of the folder.
if(CPACK_GENERATOR STREQUAL "NSIS")
  set(install "")
  set(remove "")
  set(remove_folders "")
  set(bytes 0)
  set(out_path "")
  foreach(file IN LISTS files)
    string(REPLACE "/" "\\" windows_name ${file})
    if(IS_DIRECTORY ${CPACK_TEMPORARY_DIRECTORY}/${file})
      string(PREPEND remove_folders "  RMDir \"$INSTDIR\\${windows_name}\"\n")
    else()
      get_filename_component(folder ${windows_name} DIRECTORY)
      string(REPLACE "/" "\\" folder "${folder}")
      if(NOT "x${folder}" STREQUAL "${out_path}")
        set(out_path "x${folder}")
        string(APPEND install "  SetOutPath \"$INSTDIR\\${folder}\"\n")
      endif()
      string(APPEND install "  File \"${CPACK_TEMPORARY_DIRECTORY}/${file}\"\n")
      string(APPEND remove "  Delete \"$INSTDIR\\${windows_name}\"\n")
      file(SIZE ${CPACK_TEMPORARY_DIRECTORY}/${file} size)
      math(EXPR bytes "${bytes} + ${size}")
    endif()
  endforeach()
  math(EXPR kilobytes "(${bytes} + 1023) / 1024")
  file(WRITE ${CPACK_TOPLEVEL_DIRECTORY}/files.nsh
    "!define INSTALLED_KILOBYTES ${kilobytes}\n"
    "!macro InstallFiles\n${install}!macroend\n"
    "!macro RemoveFiles\n${remove}${remove_folders}!macroend\n")
endif()

# One time and one set of rights for all, whoever packs and when.
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_DIRECTORY}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @${seconds} {} +
  COMMAND_ERROR_IS_FATAL ANY)
