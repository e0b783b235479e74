VERSION 5.00
Begin VB.Form frmMap 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Map of the Orchard"
   ClientHeight    =   6170
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   1010
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.PictureBox picMap 
      Height          =   515
      Left            =   5040
      TabIndex        =   1
      Top             =   1260
      Width           =   720
   End
   Begin VB.HScrollBar hsbMap 
      Height          =   675
      Left            =   3660
      TabIndex        =   27
      Top             =   1950
      Width           =   1755
   End
   Begin VB.Menu mnuPopup 
      Caption         =   "Popup"
      Visible         =   0   'False
      Begin VB.Menu mnuPopupTree 
         Caption         =   "&Tree Record..."
      End
      Begin VB.Menu mnuPopupBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuPopupNote 
         Caption         =   "Add &Note"
      End
   End
End
Attribute VB_Name = "frmMap"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub picMap_DblClick()
    frmTree.Show
End Sub

Private Sub mnuPopupNote_Click()
    With frmNote
        .Tag = "tree"
        .Show vbModal
    End With
End Sub

