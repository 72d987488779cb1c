# Writes the assembly manifest by which clients create the module's classes without registration.
# cmake -DCLASS_LIST=<ClassList.inc> -DIDL=<KvPEXCtl.idl> -DOUTPUT=<file> -P MakeManifest.cmake
file(READ ${IDL} idl)
if(NOT idl MATCHES "uuid\\(([0-9A-F-]+)\\),[^[]*version\\(1\\.0\\)")
    message(FATAL_ERROR "${IDL}: no library id with version 1.0")
endif()
set(library "{${CMAKE_MATCH_1}}")

file(READ ${CLASS_LIST} table)
string(REGEX REPLACE "//[^\n]*" "" table "${table}")
string(REGEX MATCHALL "KVPE_CLASS\\([A-Za-z0-9]+, [0-9]+, \"[0-9A-F-]+\"" rows "${table}")
list(LENGTH rows count)
if(NOT count EQUAL 49)
    message(FATAL_ERROR "${CLASS_LIST}: ${count} rows found, 49 expected")
endif()

set(classes)
foreach(row IN LISTS rows)
    string(REGEX MATCH "\\(([A-Za-z0-9]+), ([0-9]+), \"([0-9A-F-]+)\"" unused "${row}")
    string(APPEND classes
        "        <comClass clsid=\"{${CMAKE_MATCH_3}}\" progid=\"KvPEXCtl.${CMAKE_MATCH_1}.${CMAKE_MATCH_2}\"\n"
        "                  threadingModel=\"Apartment\" tlbid=\"${library}\"\n"
        "                  miscStatus=\"recomposeonresize,cantlinkinside,insideout,activatewhenvisible,setclientsitefirst\"/>\n")
endforeach()

file(WRITE ${OUTPUT} "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
    <assemblyIdentity type=\"win32\" name=\"KvPEXCtl\" version=\"1.0.0.0\" processorArchitecture=\"amd64\"/>
    <file name=\"KvPEXCtl.qmx\">
${classes}        <typelib tlbid=\"${library}\" version=\"1.0\" helpdir=\"\"/>
    </file>
</assembly>
")
