#pragma once

#include "acadstrc.h"
#include "acutads.h"
#include "dbcolor.h"
#include "dbidar.h"
#include "gepnt3d.h"

#include <afxcoll.h>
#include <afxwin.h>

namespace pugi
{
class xml_document;
}

/// Services through which modules reach the editor itself and not an object of a drawing. All members are
/// static and keep no state. Results of type int are 1 for success or yes and 0 for failure or no; nothing
/// throws, and only SameFileVersion shows a message.
class AFX_EXT_CLASS CFamStuGlobe
{
public:
    // The editor's windows and commands.

    /// Makes AutoCAD's main window the active one, enables it, and has the cursor drawn again.
    static void ActivateAcad();
    /// Types a command into the current document as if the user did, with the keyboard focus on AutoCAD.
    /// Nothing happens without a document, or when the text has more than 254 characters.
    static void SendCommandToCAD(CString command);
    /// Cancels what runs in all documents, or in the current one.
    static void CancelAllCommand();
    static void CancelLastCommand();
    /// Cancels the running command. The answer of the command line to that Esc; 0 when no command runs.
    static int ClearCommandLine();

    // The support path: the folders in which AutoCAD looks for files, with ";" between them.

    /// Adds the application's folders to the setting "ACAD" of the profile, unless they are there. They lie
    /// beside the folder of this module.
    static void AddSupportPath();
    /// Adds folders, unless they are there in either case. 0 when AutoCAD's preferences cannot be reached or
    /// refuse.
    static int AddSupportPath(CStringArray& folders);
    /// Puts the folders in place of what `folders` held. 0, and nothing changed, when the preferences cannot
    /// be reached.
    static int GetSupportPath(CStringArray& folders);

    // Profiles: AutoCAD's settings under a name.

    /// The name of the profile that AutoCAD starts with.
    static CString getMoRenProfiles();
    /// Makes a profile the one that AutoCAD starts with next time. It need not be there yet; AutoCAD makes it
    /// then.
    static void setMoRenProfiles(CString name);
    /// Writes settings into the profiles that a document names, which are made when they are missing. Keys
    /// and values lie as in the registry below the profile; values are texts (no type) or numbers ("dword").
    /// What is not as here is left out, also the parts of names that a registry key cannot have.
    ///
    ///     <profiles>
    ///       <profile name="...">
    ///         <key name="General">
    ///           <value name="ACAD">D:\fonts;</value>
    ///           <value name="AttachmentDragging" type="dword">1</value>
    ///         </key>
    ///       </profile>
    ///     </profiles>
    static void writePorfiles(pugi::xml_document& document);
    /// Unloads the application's menus (those of "common\sys\系统\menures") and removes the profile that
    /// AutoCAD starts with; it starts with its own unnamed one then. That one, and the profile that is in
    /// use, stay.
    static void deletePorfiles();

    // Files and modules.

    /// 1 when a module with the file name of `path` is loaded and is that very file or has its version; with
    /// another version SameFileVersion shows its message. 0 otherwise.
    static int ArxIsLoaded(CString path);
    /// Whether a module of that file name, in either case, is loaded.
    static bool isModuleLoaded(const char* name);

    /// The version text of a file's version resource. A `file` that does not exist is looked for as a name
    /// relative to the folder of this module. 0, and `version` as it was, when there is no such file or it
    /// has no version.
    static int getFileVersion(CString file, CString& version);
    /// 1 when both files carry the same version text, or none of them carries one. Otherwise shows a message
    /// box that names `b` and `a`, and gives 0.
    static int SameFileVersion(CString a, CString b);

    // Picking. Points are in the current user coordinate system. A filter is a list of groups as acedSSGet
    // takes it, or null; it stays the caller's.

    /// Asks for one object that fits the filter until one is picked. Null, and `point` unchanged, when the
    /// user gives up.
    static AcDbObjectId PickObject(AcGePoint3d& point, resbuf* filter, CString prompt);
    /// Gathers objects: those that a window from `p1` to `p2` touches, when both are given; else those of the
    /// whole drawing, with `all` not 0; else those that the user selects. Groups are not taken as a whole,
    /// and what was selected before is not any more. The number of ids, which replace those in `ids`.
    static int SelectObjects(AcDbObjectIdArray& ids, CString prompt, resbuf* filter,
                             AcGePoint3d* p1 = nullptr, AcGePoint3d* p2 = nullptr, int all = 0);
    /// Makes a selection set, which the caller frees (acedSSFree); its length. Ids that are no entities are
    /// left out. A null name and 0 when AutoCAD makes no set.
    static long Idstoss(ads_name ss, const AcDbObjectIdArray& ids);
    /// The entities of a selection set in its order; the set stays the caller's.
    static AcDbObjectIdArray SStoIds(ads_name ss);

    // Entities by their names in lists.

    /// The handle in hexadecimal digits; empty for a name that is none.
    static CString GetObjectHandle(ads_name entity);
    /// The text of a text, an attribute or a multiline text (with its format codes); empty for others.
    static CString GetTextVal(ads_name entity);
    /// Changes it. eInvalidInput for a null text, eNotThatKindOfClass for other entities, and the statuses of
    /// opening.
    static Acad::ErrorStatus SetTextVal(ads_name entity, const wchar_t* text);

    // The view.

    /// The pick box in drawing units of the current view; 0 without a document.
    static double GetSnapRange();
    /// Shows objects as large as the view can; nothing happens when none of them has extents.
    static void Zoom(AcDbObjectId object);
    static void Zoom(AcDbObjectIdArray objects);
    /// Shows the window of two points of the display coordinate system, at least 5 units high. Direction,
    /// target, twist, lens and clipping stay.
    static void Zoom(AcGePoint3d p1, AcGePoint3d p2);

    // The network.

    /// The first IPv4 address of a host as "a.b.c.d"; empty when the name cannot be resolved.
    static CString getIpAddr(CString hostName);

    // Colours. RGB values are 0x00RRGGBB.

    /// The colour of an index of AutoCAD's colour table; a number above 255 as it is.
    static DWORD GetColorFromIndex(int index);
    /// The index from 1 to 254 whose colour is nearest: the least sum of the differences of red, green and
    /// blue, the lowest index of several.
    static int GetColorIndexFromRGB(DWORD rgb);
    /// The colour object of an index: 0 by block, 1 to 255, 256 by layer; by layer for other numbers.
    static AcCmColor GetAcCmColorFromIndex(int index);
    /// The colour of an index with its red, green and blue times a factor (below 1 darker, above 1 lighter),
    /// each rounded and kept within 0 to 255; black for a factor that is no number.
    static AcCmColor ChangeColor(int index, float factor);

    // Texts.

    /// Replaces in place every occurrence of `from` in `text` by `to`, from the left to the right; what was
    /// put in is not looked at again. The caller's buffer must have room for the result. Nothing happens when
    /// `text` or `from` is null or empty; a null `to` is an empty one.
    static void replace(wchar_t* text, wchar_t* from, wchar_t* to);

    /// The Chinese text of a status for users. A number that has none gets AutoCAD's own text, with
    /// "未知错误" for its "Unknown error".
    static CString acadErrorStatusTextChs(Acad::ErrorStatus status);

private:
    /// Sets PICKSTYLE and gives what it was.
    static int SetPickStyle(int style);
};
