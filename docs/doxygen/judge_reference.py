"""Every function of the headers for C++ must say whether it throws. Usage: judge_reference.py FOLDER, that of Doxygen's XML."""
import pathlib
import sys
import xml.etree.ElementTree as xml

functions = 0
silent = []
for page in sorted(pathlib.Path(sys.argv[1]).glob("*.xml")):
    for member in xml.parse(page).iter("memberdef"):
        name = member.findtext("definition", "") + member.findtext("argsstring", "")
        if member.get("kind") != "function" or member.get("prot") != "public" or "~" in name:
            continue
        if pathlib.PurePath(member.find("location").get("file")).parent.name != "RasterPlanWriter":
            continue
        functions += 1
        if not any("hrow" in "".join(member.find(part).itertext())
                   for part in ("briefdescription", "detaileddescription")):
            silent.append(name)
if not functions:
    sys.exit(f"{sys.argv[1]} holds no such function")
if silent:
    sys.exit("No word on whether it throws:\n" + "\n".join(silent))
print(f"{functions} public functions say what they throw")
