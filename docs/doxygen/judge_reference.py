"""Every value of an enum has its comment, which Doxygen does not ask for, and every function of the headers for C++ says
whether it throws. Usage: judge_reference.py FOLDER, that of Doxygen's XML."""
import pathlib
import sys
import xml.etree.ElementTree as xml


def comment(element):
    """All words of the comment of a name."""
    return "".join("".join(element.find(part).itertext()) for part in ("briefdescription", "detaileddescription")).strip()


functions = 0
values = 0
findings = []
for page in sorted(pathlib.Path(sys.argv[1]).glob("*.xml")):
    for member in xml.parse(page).iter("memberdef"):
        if member.get("prot") != "public":
            continue
        for value in member.iter("enumvalue"):
            values += 1
            if not comment(value):
                findings.append(f"{value.findtext('name')} has no comment")
        name = member.findtext("definition", "") + member.findtext("argsstring", "")
        folder = pathlib.PurePath(member.find("location").get("file")).parent.name
        if member.get("kind") != "function" or folder != "RasterPlanWriter" or "~" in name:
            continue
        functions += 1
        if "hrow" not in comment(member):
            findings.append(f"{name} does not say whether it throws")
if not functions or not values:
    sys.exit(f"{sys.argv[1]} holds no function, or no enum")
if findings:
    sys.exit("\n".join(findings))
print(f"{functions} functions say what they throw, {values} values what they mean")
