VERSION 5.00
Begin VB.Form frmTree 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Tree Record"
   ClientHeight    =   3395
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1011
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.Frame fraState 
      Caption         =   "State"
      Height          =   515
      Left            =   150
      TabIndex        =   23
      Top             =   1710
      Width           =   1860
   End
   Begin VB.OptionButton optState 
      Caption         =   "&Healthy"
      Height          =   555
      Left            =   1455
      Index           =   0
      TabIndex        =   29
      Top             =   3045
      Width           =   900
   End
   Begin VB.OptionButton optState 
      Caption         =   "&Sick"
      Height          =   290
      Left            =   1125
      Index           =   1
      TabIndex        =   19
      Top             =   4800
      Width           =   1995
   End
   Begin VB.OptionButton optState 
      Caption         =   "&Felled"
      Height          =   360
      Left            =   1065
      Index           =   2
      TabIndex        =   0
      Top             =   90
      Width           =   1095
   End
   Begin VB.CommandButton cmdNote 
      Caption         =   "&Note..."
      Height          =   475
      Left            =   1320
      TabIndex        =   27
      Top             =   1335
      Width           =   1410
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Height          =   600
      Left            =   1575
      Default         =   -1  'True
      TabIndex        =   17
      Top             =   4860
      Width           =   1080
   End
End
Attribute VB_Name = "frmTree"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdNote_Click()
    Dim f As New frmNote
    f.Show vbModal
    frmNote.Show vbModal
End Sub

Private Sub cmdOK_Click()
    Unload Me
End Sub

