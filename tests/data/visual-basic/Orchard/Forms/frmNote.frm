VERSION 5.00
Begin VB.Form frmNote 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Note"
   ClientHeight    =   5180
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.TextBox txtNote 
      Height          =   450
      Left            =   3000
      MultiLine       =   -1  'True
      Text            =   "frmNote.frx":0000
      TabIndex        =   9
      Top             =   225
      Width           =   1680
   End
End
Attribute VB_Name = "frmNote"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    txtNote = ""
End Sub
