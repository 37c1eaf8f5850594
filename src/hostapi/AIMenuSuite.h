/* The menu suite and its message: groups and items that plug-ins add to the host's menus.
 *
 * A group is a run of items in a menu. Its name is unique and never shown; the host's own are in AIMenuGroups.h. What a
 * group holds, the shown order: items, and groups that are part of it. */
#ifndef HOSTAPI_AIMENUSUITE_H
#define HOSTAPI_AIMENUSUITE_H

#include "hostapi/SPMessages.h"

#define kAIMenuSuite "AI Menu Suite"
#define kAIMenuSuiteVersion 7

#define kCallerAIMenu "AI Menu"
#define kSelectorAIGoMenuItem "AI Go"
#define kSelectorAIUpdateMenuItem "AI Update"

/* "AI Go": the item was chosen. "AI Update": the menus are about to be shown, and the plug-in may change its items; the
 * item is null, since one message stands for all of them. */
typedef struct AIMenuMessage {
    SPMessageData d;
    AIMenuItemHandle menuItem;
} AIMenuMessage;

/* Menu group options, a bit set. */
enum {
    kMenuGroupSortedOption = 1,  /* items are shown in the order of their texts, dividers above all */
    kMenuGroupPartialOption = 2, /* part of the group near by; without it a section of its own below that one */
    kMenuGroupSubMenuOption = 4, /* of a partial group: an item with the group's text opens it */
    kMenuGroupOnTopOption = 8    /* of a partial group: first in the group near by, else last */
};

/* Menu item options, a bit set. */
enum { kMenuItemDividerOption = 1 /* a line between items, which cannot be chosen */ };

typedef struct AIMenuSuite {
    /* Groups. */
    AIErr (*CountMenuGroups)(int32_t* count);
    /* The group at `index`, counted from 0; new groups follow the one that they were placed near. kBadParameterErr:
     * there is none. */
    AIErr (*GetNthMenuGroup)(int32_t index, AIMenuGroup* group);
    /* Adds a group near the one that is called `nearGroup`. kBadParameterErr: the name is taken or empty, no group is
     * called `nearGroup`, or an option is unknown or needs the partial one. */
    AIErr (*AddMenuGroup)(SPPluginRef self, const char* name, const char* text, const char* nearGroup, int32_t options,
                          AIMenuGroup* group);
    /* Removes a group with all that it holds. kRefusedErr: it is the host's own, or holds something of another
     * plug-in. */
    AIErr (*RemoveMenuGroup)(AIMenuGroup group);
    AIErr (*GetMenuGroupName)(AIMenuGroup group, const char** name);
    /* The text is that of the item that opens the group, if one does. Of the host's own groups it is the name, and
     * a change returns kRefusedErr. */
    AIErr (*GetMenuGroupText)(AIMenuGroup group, const char** text);
    AIErr (*SetMenuGroupText)(AIMenuGroup group, const char* text);
    /* Whether what the group holds can be chosen, as far as the group has a say. */
    AIErr (*GetMenuGroupEnabled)(AIMenuGroup group, AIBoolean* enabled);
    AIErr (*SetMenuGroupEnabled)(AIMenuGroup group, AIBoolean enabled);
    /* Only the sorted option can be changed. kBadParameterErr: another one would be. */
    AIErr (*GetMenuGroupOptions)(AIMenuGroup group, int32_t* options);
    AIErr (*SetMenuGroupOptions)(AIMenuGroup group, int32_t options);
    /* The group that this one is part of, null for a section of its own. */
    AIErr (*GetMenuGroupParent)(AIMenuGroup group, AIMenuGroup* parent);
    /* The item that opens the group, null where none does. */
    AIErr (*GetMenuGroupItem)(AIMenuGroup group, AIMenuItemHandle* item);
    AIErr (*CountMenuGroupChildren)(AIMenuGroup group, int32_t* count);
    /* What the group holds at `index`, counted from 0: an item or a group; the other one is null. The item that
     * opens a group is not listed beside it. kBadParameterErr: there is nothing. */
    AIErr (*GetNthMenuGroupChild)(AIMenuGroup group, int32_t index, AIMenuItemHandle* item, AIMenuGroup* child);

    /* Items. */
    /* Adds an item to the end of the group that is called `group`. kBadParameterErr: there is no such group, or an
     * option is unknown. */
    AIErr (*AddMenuItem)(SPPluginRef self, const char* group, const char* text, int32_t options,
                         AIMenuItemHandle* item);
    /* kRefusedErr: the item opens a group, and goes with it. */
    AIErr (*RemoveMenuItem)(AIMenuItemHandle item);
    AIErr (*GetMenuItemText)(AIMenuItemHandle item, const char** text);
    AIErr (*SetMenuItemText)(AIMenuItemHandle item, const char* text);
    AIErr (*GetMenuItemEnabled)(AIMenuItemHandle item, AIBoolean* enabled);
    AIErr (*SetMenuItemEnabled)(AIMenuItemHandle item, AIBoolean enabled);
    AIErr (*GetMenuItemChecked)(AIMenuItemHandle item, AIBoolean* checked);
    AIErr (*SetMenuItemChecked)(AIMenuItemHandle item, AIBoolean checked);
    AIErr (*GetMenuItemOptions)(AIMenuItemHandle item, int32_t* options);
    /* The group that the item is in. */
    AIErr (*GetMenuItemGroup)(AIMenuItemHandle item, AIMenuGroup* group);
    /* The group that the item opens, null for one that does not. */
    AIErr (*GetMenuItemSubGroup)(AIMenuItemHandle item, AIMenuGroup* group);
} AIMenuSuite;

DESCRIBE_SUITE(AIMenuSuite)

#endif
