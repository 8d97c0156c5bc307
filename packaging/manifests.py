"""The manifests by which winget and Scoop find, check and install the packages."""

import json
import time

import installer

IDENTIFIER = "Kvez.Kvez"
# The oldest form that says all that is said here.
FORM = "1.6.0"
DESCRIPTION = "Vyhledávání obcí České republiky, jejich PSČ, dodávacích pošt a okresů."
PUBLISHER = "Vývojáři programu Kvez"
ARCHITECTURES = {"x64": "64bit", "x86": "32bit"}


def quoted(text):
    """A text of YAML in which nothing means anything."""
    return '"' + str(text).replace("\\", "\\\\").replace('"', '\\"') + '"'


def document(kind, rows, version):
    head = [f"PackageIdentifier: {IDENTIFIER}", f"PackageVersion: {quoted(version)}"]
    foot = [f"ManifestType: {kind}", f"ManifestVersion: {FORM}"]
    return "\n".join(head + rows + foot) + "\n"


def winget(version, addresses, sums, product_codes, seconds):
    """File name to text."""
    rows = ["InstallerLocale: cs-CZ", "MinimumOSVersion: 6.1.7601.0", "InstallerType: msi", "Scope: user",
            "InstallModes:", "- interactive", "- silent", "- silentWithProgress", "InstallerSwitches:",
            "  InstallLocation: INSTALLDIR=\"<INSTALLPATH>\"", "UpgradeBehavior: install",
            f"ReleaseDate: {time.strftime('%Y-%m-%d', time.gmtime(seconds))}", "AppsAndFeaturesEntries:",
            f"- UpgradeCode: {quoted(installer.UPGRADE_CODE)}", "Installers:"]
    for processor, product_code in product_codes.items():
        name = f"kvez-{version}-{processor}.msi"
        rows += [f"- Architecture: {processor}", f"  InstallerUrl: {quoted(addresses['base'] + name)}",
                 f"  InstallerSha256: {sums[name].upper()}", f"  ProductCode: {quoted(product_code)}"]
    locale = ["PackageLocale: cs-CZ", f"Publisher: {PUBLISHER}", f"PublisherUrl: {quoted(addresses['page'])}",
              "PackageName: Kvez", f"PackageUrl: {quoted(addresses['page'])}", "License: MIT", "Moniker: kvez",
              f"ShortDescription: {DESCRIPTION}", "Tags:", "- psč", "- obce", "- pošta"]
    return {f"{IDENTIFIER}.yaml": document("version", ["DefaultLocale: cs-CZ"], version),
            f"{IDENTIFIER}.installer.yaml": document("installer", rows, version),
            f"{IDENTIFIER}.locale.cs-CZ.yaml": document("defaultLocale", locale, version)}


def scoop(version, addresses, sums, product_codes):
    packages = {}
    for processor in product_codes:
        name = f"kvez-{version}-{processor}.zip"
        packages[ARCHITECTURES[processor]] = {"url": addresses["base"] + name, "hash": sums[name]}
    return {"version": version, "description": DESCRIPTION, "homepage": addresses["page"], "license": "MIT",
            "architecture": packages, "extract_dir": "Kvez", "shortcuts": [["kvez.exe", "Kvez"]]}


def make(out, version, addresses, sums, product_codes, seconds):
    (out / "winget").mkdir()
    for name, text in winget(version, addresses, sums, product_codes, seconds).items():
        (out / "winget" / name).write_text(text, "utf-8")
    (out / "scoop").mkdir()
    text = json.dumps(scoop(version, addresses, sums, product_codes), ensure_ascii=False, indent=4)
    (out / "scoop" / "kvez.json").write_text(text + "\n", "utf-8")
