#!/usr/bin/env python3
# Lists the libraries that the programs run with, as a CycloneDX document: tools/sbom.py BIN_FOLDER VERSION RESULT.json
# SPDX-License-Identifier: MIT
#
# What a program or codec module names itself (readelf) is what it depends on; what the loader adds to that (ldd) is
# listed, too. Each library is told as the package that holds it (dpkg); one of no package, by its name and checksum. The
# toolkit's plugins, which are found at run time, are not seen this way.
import hashlib, json, os, re, subprocess, sys

bin_folder, version, result = sys.argv[1:4]


def lines(*words):
    return subprocess.run(words, capture_output=True, text=True, check=True).stdout.splitlines()


def component_of(library, known={}):
    """The component of a library's package, made once."""
    path = os.path.realpath(library)
    if path not in known:
        names = [path, path.removeprefix("/usr")]  # older packages name their files as before the folders were merged
        found = subprocess.run(["dpkg", "-S", *names], capture_output=True, text=True).stdout.splitlines()
        if found:
            package = found[0].rsplit(": ", 1)[0]
            form = "${Package}\t${Version}\t${Architecture}\t${Maintainer}\t${source:Package}"
            name, release, architecture, maker, source = lines("dpkg-query", "-W", "-f", form, package)[0].split("\t")
            url = "pkg:deb/debian/%s@%s?arch=%s" % (name, release.replace("+", "%2B").replace(":", "%3A"), architecture)
            known[path] = {"type": "library", "bom-ref": url, "name": name, "version": release, "purl": url,
                           "supplier": {"name": maker}, "properties": [{"name": "source", "value": source}]}
        else:
            with open(path, "rb") as file:
                checksum = hashlib.sha256(file.read()).hexdigest()
            known[path] = {"type": "library", "bom-ref": checksum, "name": os.path.basename(path),
                           "hashes": [{"alg": "SHA-256", "content": checksum}]}
    return known[path]


programs = ["kelu", "kelu-cli"] + sorted("codecs/" + name for name in os.listdir(os.path.join(bin_folder, "codecs")))
components, dependencies = {}, []
for program in programs:
    path = os.path.join(bin_folder, program)
    loaded = dict(re.match(r"\s*(\S+) => (/\S+)", line).groups() for line in lines("ldd", path) if " => /" in line)
    named = [re.search(r"\[(.+)\]", line)[1] for line in lines("readelf", "-d", path) if "(NEEDED)" in line]
    for library in loaded.values():
        component = component_of(library)
        components[component["bom-ref"]] = component
    own = "kelu:" + program
    components[own] = {"type": "file" if "/" in program else "application", "bom-ref": own, "name": program, "version": version}
    direct = sorted({component_of(loaded[name])["bom-ref"] for name in named if name in loaded})
    dependencies.append({"ref": own, "dependsOn": direct})
document = {"bomFormat": "CycloneDX", "specVersion": "1.4", "version": 1,
            "metadata": {"component": {"type": "application", "bom-ref": "kelu", "name": "kelu", "version": version}},
            "components": [components[ref] for ref in sorted(components)],
            "dependencies": [{"ref": "kelu", "dependsOn": ["kelu:" + program for program in programs]}] + dependencies}
with open(result, "w") as file:
    json.dump(document, file, indent=1)
    file.write("\n")
print("%s: %d programs and modules, %d packages" % (result, len(programs), len(components) - len(programs)))
