VERSION 5.00
Begin VB.Form frmQuality 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Quality -- Grading   and Sorting"
   ClientHeight    =   3080
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   2000000001
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.CheckBox chkDefect 
      Caption         =   "Bruise"
      Height          =   465
      Left            =   1050
      Index           =   0
      TabIndex        =   23
      Top             =   4380
      Width           =   795
   End
   Begin VB.CheckBox chkDefect 
      Caption         =   "Scab"
      Height          =   725
      Left            =   870
      Index           =   1
      TabIndex        =   5
      Top             =   3390
      Width           =   1725
   End
   Begin VB.CheckBox chkDefect 
      Caption         =   "Russet"
      Height          =   390
      Left            =   510
      Index           =   2
      TabIndex        =   27
      Top             =   3285
      Width           =   1425
   End
End
Attribute VB_Name = "frmQuality"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdReport_Click()
    frmReport1.Show
    frmReport10.Show
    frmReport.Show
    frmReport1.Show ' again
End Sub

