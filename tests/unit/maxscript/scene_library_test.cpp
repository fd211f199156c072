// The host's library over a scene description.
#include "standin/host/maxscript_runner.h"
#include "tests/unit/maxscript/script_rows.h"

#include <memory>

namespace {

constexpr char kScene[] = R"json({
    "cameras": ["A", {"name": "B", "width": 100, "height": 50}],
    "objects": ["Box"],
    "nodes": [{"name": "T", "class": "Targetobject"},
              {"name": "P", "class": "Point", "superclass": "Helper", "hidden": true,
               "controllers": {"scale": "a script"}}],
    "maps": [{"class": "VRayBitmap", "properties": {"HDRIMapName": "a.hdr"}}],
    "renderer": {"name": "V_Ray_5", "properties": {"camera_type": 9, "gi_on": true}},
    "output": {"width": 800, "height": 600, "file": "D:\\out\\a.exr", "gamma": 1.5, "render_type": "crop"},
    "frames": {"time_type": 2, "start": 3, "end": 9, "current": 4, "active_start": 1, "active_end": 50, "list": "1,2"},
    "external_files": ["D:\\a.jpg", {"path": "D:\\b.jpg", "missing": false, "type": "RenderOutput"}],
    "xrefs": ["D:\\x.max", {"path": "D:\\y.max", "xrefs": ["D:\\z.max"]}], "object_xrefs": ["D:\\o.max"],
    "globals": {"Marker": "text", "Fun": {"function": true}}, "persistents": ["Marker"],
    "callbacks": [{"type": "filePostOpen", "id": "one", "script": "x", "persistent": true}],
    "custom_attributes": [{"name": "def", "source": "attributes def ()"}]})json";

class SceneLibrary : public ScriptRows {
protected:
    SceneLibrary() {
        std::string error;
        EXPECT_TRUE(scene_.describe(kScene, error)) << error;
    }
    std::wstring run(const std::wstring& script) {
        const standin::ScriptOutcome outcome = runner_.run(L"(" + script + L") as string");
        return outcome.ok ? outcome.text : L"error: " + outcome.error;
    }

    standin::Scene scene_;
    standin::MaxscriptRunner runner_{scene_, [](const std::wstring&) { return std::wstring(); },
                                     [](const std::wstring&) {}};
};

TEST_P(SceneLibrary, ShowsTheDescription) {
    EXPECT_EQ(run(GetParam().script), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Nodes, SceneLibrary,
    ::testing::Values(
        ScriptRow{L"objects.count", L"5"},
        ScriptRow{L"for c in cameras collect c.name", L"#(\"A\", \"B\", \"T\")"},
        ScriptRow{L"for c in cameras where superClassOf c == camera collect c.name",
                  L"#(\"A\", \"B\")"},
        ScriptRow{L"for c in cameras collect (classOf c) as string",
                  L"#(\"Freecamera\", \"VRayPhysicalCamera\", \"Targetobject\")"},
        ScriptRow{L"cameras[2].override_width", L"100"},
        ScriptRow{L"isProperty cameras[1] #override_width", L"false"},
        ScriptRow{
            L"cameras[1].override_width",
            L"error: Unknown property: \"override_width\" in $Freecamera:A; line: 1, column: 12"},
        ScriptRow{L"helpers[1].isHidden", L"true"},
        ScriptRow{L"(helpers[1].isHidden = false; helpers[1].isHidden)", L"false"},
        ScriptRow{L"helpers[1].scale.controller.script", L"a script"},
        ScriptRow{L"isProperty objects[1].scale.controller #script", L"false"},
        ScriptRow{L"classOf helpers[1] == Point", L"true"},
        ScriptRow{L"isKindOf cameras[1] Camera", L"true"},
        ScriptRow{L"(getNodeByName \"b\").name", L"B"},
        ScriptRow{L"(n = objects[1]; delete n; #(isDeleted n, isValidNode n, objects.count))",
                  L"#(true, false, 4)"},
        ScriptRow{L"(n = objects[1]; delete n; n.name)",
                  L"error: Attempt to access deleted scene object; line: 1, column: 30"},
        ScriptRow{L"(objects[1].name = \"N\"; objects[1].name)", L"N"},
        ScriptRow{L"for c in TextureMap.classes collect c as string", L"#(\"VRayBitmap\")"},
        ScriptRow{L"(getClassInstances TextureMap.classes[1])[1].HDRIMapName", L"a.hdr"},
        ScriptRow{L"(getClassInstances Point).count", L"1"}));

INSTANTIATE_TEST_SUITE_P(
    Rendering, SceneLibrary,
    ::testing::Values(
        ScriptRow{L"(classOf renderers.production) as string", L"V_Ray_5"},
        ScriptRow{L"renderers.current.camera_type", L"9"},
        ScriptRow{L"getProperty renderers.current #GI_On", L"true"},
        ScriptRow{L"(getPropNames renderers.current).count", L"2"},
        ScriptRow{L"#(renderWidth, renderHeight)", L"#(800, 600)"},
        ScriptRow{L"rendOutputFilename", L"D:\\out\\a.exr"}, ScriptRow{L"rendSaveFile", L"true"},
        ScriptRow{L"getRenderType()", L"crop"}, ScriptRow{L"fileOutGamma", L"1.5"},
        ScriptRow{L"rendTimeType", L"2"},
        ScriptRow{L"#(rendStart.frame, rendEnd.frame)", L"#(3.0, 9.0)"},
        ScriptRow{L"currentTime.frame", L"4.0"},
        ScriptRow{L"#(animationRange.start.frame, animationRange.end.frame)", L"#(1.0, 50.0)"},
        ScriptRow{L"rendPickupFrames", L"1,2"}, ScriptRow{L"(maxVersion())[1]", L"21000"},
        ScriptRow{L"maxFileName", L""}, ScriptRow{L"maxFilePath", L""},
        ScriptRow{
            L"renderWidth = 5",
            L"error: Cannot assign to read-only system global: renderWidth; line: 1, column: 2"}));

INSTANTIATE_TEST_SUITE_P(
    Files, SceneLibrary,
    ::testing::Values(ScriptRow{L"AssetManager.GetNumAssets()", L"2"},
                      ScriptRow{L"(AssetManager.GetAssetByIndex 1).GetFileName()", L"D:\\a.jpg"},
                      ScriptRow{L"(AssetManager.GetAssetByIndex 2).GetType()", L"RenderOutput"},
                      ScriptRow{L"doesFileExist @\"d:\\B.jpg\"", L"true"},
                      ScriptRow{L"doesFileExist @\"D:\\a.jpg\"", L"false"},
                      ScriptRow{L"xrefs.getXRefFileCount()", L"2"},
                      ScriptRow{L"(xrefs.getXRefFile 1 root:(xrefs.getXRefFile 2)).filename",
                                L"D:\\z.max"},
                      ScriptRow{L"xrefs.getXRefFileCount root:(xrefs.getXRefFile 1)", L"0"},
                      ScriptRow{L"xrefs.getXRefFile 3",
                                L"error: xrefs: no reference of that index: 3; line: 1, column: 2"},
                      ScriptRow{L"objXRefs.getFileName 1", L"D:\\o.max"}));

INSTANTIATE_TEST_SUITE_P(
    Registries, SceneLibrary,
    ::testing::Values(
        ScriptRow{L"#(globalVars.isGlobal #marker, globalVars.isGlobal #absent)",
                  L"#(true, false)"},
        ScriptRow{L"globalVars.get #Marker", L"text"},
        ScriptRow{L"classOf (globalVars.get #Fun) == MAXScriptFunction", L"true"},
        ScriptRow{L"globalVars.get #absent",
                  L"error: Global variable does not exist: absent; line: 1, column: 2"},
        ScriptRow{L"globalVars.gather()", L"#(#Fun, #Marker)"},
        ScriptRow{L"(globalVars.set #Marker 5; globalVars.get #Marker)", L"5"},
        ScriptRow{L"(globalVars.remove #Marker; globalVars.isGlobal #Marker)", L"false"},
        ScriptRow{L"globalVars.remove #append", L"false"},
        ScriptRow{L"#(persistents.isPersistent #marker, persistents.remove #Marker, "
                  L"persistents.isPersistent #Marker, globalVars.isGlobal #Marker)",
                  L"#(true, true, false, true)"},
        ScriptRow{L"persistents.gather()", L"#(#Marker)"},
        ScriptRow{L"(s = stringStream \"\"; callbacks.show id:#one to:s; s as string)",
                  L"#filePostOpen  id:#one  x\n"},
        ScriptRow{L"(callbacks.removeScripts id:#one; callbacks.removeScripts id:#absent; s = "
                  L"stringStream \"\"; callbacks.show to:s; s as string)",
                  L""},
        ScriptRow{L"(callbacks.addScript #fileNew \"y\" id:#two; callbacks.removeScripts #fileNew; "
                  L"s = stringStream \"\"; callbacks.show id:#two to:s; s as string)",
                  L""},
        ScriptRow{L"custAttributes.getDefSource (custAttributes.getSceneDefs())[1]",
                  L"attributes def ()"},
        ScriptRow{L"(custAttributes.deleteDef (custAttributes.getSceneDefs())[1]; "
                  L"custAttributes.getSceneDefs())",
                  L"#()"}));

TEST_F(SceneLibrary, ForgetsTheGlobalsOfASceneThatIsClosed) {
    EXPECT_EQ(run(L"globalVars.isGlobal #Marker"), L"true");
    std::string error;
    ASSERT_TRUE(scene_.describe("{}", error));
    EXPECT_EQ(run(L"globalVars.isGlobal #Marker"), L"false");
}

TEST_F(SceneLibrary, MarksTheSceneAsModified) {
    EXPECT_EQ(run(L"getSaveRequired()"), L"false");
    run(L"setSaveRequired true");
    EXPECT_TRUE(scene_.modified());
}

TEST_F(SceneLibrary, KeepsTheQuietMode) {
    EXPECT_EQ(run(L"GetQuietMode()"), L"false");
    EXPECT_EQ(run(L"SetQuietMode true"), L"false") << "what it was before";
    EXPECT_EQ(run(L"getquietmode()"), L"true");
}

} // namespace
