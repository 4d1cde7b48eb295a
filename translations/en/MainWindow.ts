<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>MainWindow</name>
    <message>
        <source>about</source>
        <translation>About Tavimo</translation>
    </message>
    <message>
        <source>aboutText</source>
        <translation>Version %1
Words that stay.</translation>
    </message>
    <message>
        <source>bringAllToFront</source>
        <translation>Bring to front</translation>
    </message>
    <message>
        <source>checkForUpdates</source>
        <translation>Check for updates…</translation>
    </message>
    <message>
        <source>chooseYourLang</source>
        <translation>Which language do you want to learn?</translation>
    </message>
    <message>
        <source>close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>deleteDuplicateWords</source>
        <translation>Remove duplicate words…</translation>
    </message>
    <message>
        <source>dismissInfo</source>
        <translation>Don't show this again</translation>
    </message>
    <message>
        <source>edit</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>export</source>
        <translation>Export…</translation>
    </message>
    <message>
        <source>feedbackPrompt</source>
        <translation>Tell us what you miss. We read every mail.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>File</translation>
    </message>
    <message>
        <source>firstSetup</source>
        <translation>Start with a language of your own, or bring along what you have.</translation>
    </message>
    <message>
        <source>getStarted</source>
        <translation>Let’s start</translation>
    </message>
    <message>
        <source>getWords</source>
        <translation>Get words</translation>
    </message>
    <message>
        <source>goToAppSupport</source>
        <translation>Show data folder</translation>
    </message>
    <message>
        <source>help</source>
        <translation>Hints</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>helpAddWord</source>
        <translation>New words go in here. Ctrl+N does the same.</translation>
    </message>
    <message>
        <source>helpLevels</source>
        <translation>Your words move through six levels, the better you know them. Click one to see its words.</translation>
    </message>
    <message>
        <source>helpSearch</source>
        <translation>Find a word, a comment or a tag.</translation>
    </message>
    <message>
        <source>helpTable</source>
        <translation>Click a word to change it. A click on a column’s title sorts.</translation>
    </message>
    <message>
        <source>helpTags</source>
        <translation>Tags narrow the list. Drag one onto a word to tag it.</translation>
    </message>
    <message>
        <source>hide</source>
        <translation>Hide Tavimo</translation>
    </message>
    <message>
        <source>howDoYouLikeIt</source>
        <translation>How do you like Tavimo?</translation>
    </message>
    <message>
        <source>import</source>
        <translation>Import…</translation>
    </message>
    <message>
        <source>impossibleLanguageName</source>
        <translation>This name can’t be used: please no slashes, and not quite so long.</translation>
    </message>
    <message>
        <source>language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>languageExample</source>
        <translation>For instance Italian</translation>
    </message>
    <message>
        <source>linkDropbox</source>
        <translation>1.  Link this computer with your Dropbox</translation>
    </message>
    <message>
        <source>linkDropboxButton</source>
        <translation>Link Dropbox</translation>
    </message>
    <message>
        <source>loveit</source>
        <translation>I love it</translation>
    </message>
    <message>
        <source>Manage Languages...</source>
        <translation>Manage Languages…</translation>
    </message>
    <message>
        <source>minimize</source>
        <translation>Minimise</translation>
    </message>
    <message>
        <source>noLangsOnDB</source>
        <translation>No languages found</translation>
    </message>
    <message>
        <source>noLangsOnDBMsg</source>
        <translation>There are no languages in your Dropbox yet. Start with a new one, or try again later.</translation>
    </message>
    <message>
        <source>notYetBuilt</source>
        <translation>There is nothing here yet.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>preferences</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>quiz</source>
        <translation>Quiz</translation>
    </message>
    <message>
        <source>rateit</source>
        <translation>Rate Tavimo</translation>
    </message>
    <message>
        <source>ratePrompt</source>
        <translation>Good to hear! A rating helps others to find Tavimo.</translation>
    </message>
    <message>
        <source>search</source>
        <translation>Find a word</translation>
    </message>
    <message>
        <source>selectAll</source>
        <translation>Select all</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>showAll</source>
        <translation>Show all windows</translation>
    </message>
    <message>
        <source>showHelp</source>
        <translation>Show hints</translation>
    </message>
    <message>
        <source>showSynonyms</source>
        <translation>Show synonyms</translation>
    </message>
    <message>
        <source>statistics</source>
        <translation>Statistics</translation>
    </message>
    <message>
        <source>supportURL</source>
        <translation>https://example.org/tavimo/support</translation>
    </message>
    <message>
        <source>synchronizeLangs</source>
        <translation>2.  Fetch your languages</translation>
    </message>
    <message>
        <source>syncWithExisting</source>
        <translation>You already use Tavimo elsewhere?</translation>
    </message>
    <message>
        <source>undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>unhappy</source>
        <translation>Not so much</translation>
    </message>
    <message>
        <source>view</source>
        <translation>View</translation>
    </message>
    <message>
        <source>visitSupport</source>
        <translation>Visit the support page</translation>
    </message>
    <message>
        <source>vocabulary</source>
        <translation>Vocabulary</translation>
    </message>
    <message>
        <source>welcome</source>
        <translation>Welcome to Tavimo</translation>
    </message>
    <message>
        <source>window</source>
        <translation>Window</translation>
    </message>
    <message>
        <source>writeMail</source>
        <translation>Write a mail</translation>
    </message>
    <message>
        <source>zoom</source>
        <translation>Zoom</translation>
    </message>
</context>
</TS>
