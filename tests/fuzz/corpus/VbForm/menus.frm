VERSION 5.00
Begin VB.MDIForm mdiOrchard 
   Caption         =   "Orchard Ledger"
   ClientHeight    =   5570
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1000
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin MSComctlLib.StatusBar sbrMain 
      Height          =   525
      Left            =   5745
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   1
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
         EndProperty
      EndProperty
      TabIndex        =   11
      Top             =   4125
      Width           =   405
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      HelpContextID   =   1001
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Open Season..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "Recent"
         Begin VB.Menu mnuRecentSeason 
            Caption         =   "&Season"
            Begin VB.Menu mnuRecentItem 
               Caption         =   "(none)"
               Enabled         =   0   'False
               Index           =   0
            End
            Begin VB.Menu mnuRecentItem 
               Caption         =   "Older && Closed"
               Index           =   1
            End
         End
         Begin VB.Menu mnuRecentReport 
            Caption         =   "&Report"
         End
      End
      Begin VB.Menu mnuFileBar0 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuTrees 
      Caption         =   "&Trees"
      Begin VB.Menu mnuTreesPlant 
         Caption         =   "&Plant a Row..."
      End
      Begin VB.Menu mnuTreesMap 
         Caption         =   "&Map"
         Checked         =   -1  'True
         Shortcut        =   {F4}
      End
      Begin VB.Menu mnuTreesBar1 
         Caption         =   "-"
         Index           =   7
      End
      Begin VB.Menu mnuTreesPrune 
         Caption         =   "Pruning Calendar"
      End
   End
   Begin VB.Menu mnuHarvest 
      Caption         =   "&Harvest"
      Begin VB.Menu mnuHarvestWeigh 
         Caption         =   "&Weigh In..."
      End
      Begin VB.Menu mnuHarvestBins 
         Caption         =   "&Bins"
      End
      Begin VB.Menu mnuHarvestQuality 
         Caption         =   "Quality: Grading && Sorting..."
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
      Begin VB.Menu mnuWindowTile 
         Caption         =   "&Tile"
      End
      Begin VB.Menu mnuWindowCascade 
         Caption         =   "&Cascade"
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpContents 
         Caption         =   "&Contents"
      End
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Orchard Ledger..."
      End
   End
End
Attribute VB_Name = "mdiOrchard"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub mnuFileOpen_Click()
    frmOpenSeason.Show vbModal, Me
End Sub

Private Sub mnuTreesMap_Click()
    ' frmMapOld.Show  the map of 1998
    If frmMap.Visible = False Then frmMap.Show
End Sub

Private Sub mnuTreesPlant_Click()
    Load frmPlant
    frmPlant.txtRow = ""
    frmPlant.Show 1
End Sub

Private Sub mnuTreesPrune_Click()
    frmCalendar.ShowMonth Now
    Call frmCalendar.Show
End Sub

Private Sub mnuHarvestWeigh_Click()
    frmWeigh.Show: frmBins.Refresh
End Sub

Private Sub mnuHarvestBins_Click()
    Rem frmBinsOld.Show
    frmBins.Show
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal ' frmSplash.Show was here
    Me.Show
End Sub

